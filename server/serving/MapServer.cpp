#include "serving/MapServer.h"

#include "serving/ClientSession.h"

namespace orbelan::server {

MapServer::MapServer(MapReader& reader, ServerLog& log, QObject* parent)
    : QObject(parent),
      handler_(reader),
      log_(log)
{
    connect(&server_, &QTcpServer::newConnection, this, &MapServer::acceptConnections);
}

bool MapServer::listen(const QHostAddress& address, quint16 port)
{
    if (!server_.listen(address, port)) {
        return false;
    }
    log_.line("listening on " + address.toString().toStdString() + ":" +
              std::to_string(server_.serverPort()));
    return true;
}

void MapServer::acceptConnections()
{
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        new ClientSession(socket, ++connections_, handler_, log_, this);
    }
}

} // namespace orbelan::server
