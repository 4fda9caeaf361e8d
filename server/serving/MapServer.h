#pragma once

#include "storage/MapReader.h"
#include "serving/RequestHandler.h"
#include "serving/ServerLog.h"

#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QTcpServer>

#include <chrono>
#include <cstdint>

namespace orbelan::server {

// Listens for clients and gives each connection its own session; all of
// them are served from the one event loop.
class MapServer : public QObject {
    Q_OBJECT

public:
    MapServer(MapReader& reader, ServerLog& log, QObject* parent = nullptr);

    // False, with errorString() telling why, when the address cannot be bound.
    bool listen(const QHostAddress& address, quint16 port);
    quint16 port() const { return server_.serverPort(); }
    QString errorString() const { return server_.errorString(); }
    // Stops accepting, gives the replies being written until the deadline to
    // leave, and closes every connection. Returns how many were open.
    int shutDown(std::chrono::milliseconds deadline);

private:
    void acceptConnections();

    RequestHandler handler_;
    ServerLog& log_;
    QTcpServer server_;
    std::uint64_t connections_ = 0;
};

} // namespace orbelan::server
