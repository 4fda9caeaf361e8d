#include "LoopbackServer.h"

#include <QTcpSocket>
#include <QTest>

#include <stdexcept>

namespace orbelan::nettest {

bool waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, static_cast<int>(std::chrono::milliseconds(kWaitLimit).count()));
}

quint16 unusedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

LoopbackServer::LoopbackServer(quint16 port)
{
    if (!server_.listen(QHostAddress::LocalHost, port)) {
        throw std::runtime_error("cannot listen on 127.0.0.1: " + server_.errorString().toStdString());
    }
    connect(&server_, &QTcpServer::newConnection, this, &LoopbackServer::accept);
}

bool LoopbackServer::waitForConnections(int count)
{
    return waitUntil([&] { return connectionCount() >= count; });
}

const Bytes& LoopbackServer::received(int connection) const
{
    return received_.at(static_cast<std::size_t>(connection));
}

bool LoopbackServer::waitForReceived(int connection, std::size_t count)
{
    return waitUntil([&] { return connection < connectionCount() && received(connection).size() >= count; });
}

void LoopbackServer::write(int connection, const Bytes& bytes)
{
    QTcpSocket* socket = connections_.at(static_cast<std::size_t>(connection));
    socket->write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    socket->flush();
}

void LoopbackServer::drop(int connection)
{
    connections_.at(static_cast<std::size_t>(connection))->disconnectFromHost();
}

void LoopbackServer::accept()
{
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        const std::size_t index = connections_.size();
        connections_.push_back(socket);
        received_.emplace_back();
        connect(socket, &QIODevice::readyRead, this, [this, socket, index] {
            const QByteArray data = socket->readAll();
            received_[index].insert(received_[index].end(), data.begin(), data.end());
        });
    }
}

} // namespace orbelan::nettest
