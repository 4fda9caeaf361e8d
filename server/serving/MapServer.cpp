#include "serving/MapServer.h"

#include "serving/ClientSession.h"

#include <QDeadlineTimer>
#include <QTcpSocket>

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

int MapServer::shutDown(std::chrono::milliseconds deadline)
{
    server_.close();
    const QDeadlineTimer timer(deadline);
    const QList<QTcpSocket*> sockets = findChildren<QTcpSocket*>();
    for (QTcpSocket* socket : sockets) {
        while (socket->bytesToWrite() > 0 && !timer.hasExpired() &&
               socket->waitForBytesWritten(static_cast<int>(timer.remainingTime()))) {
        }
        socket->abort();
    }
    return static_cast<int>(sockets.size());
}

} // namespace orbelan::server
