#include "LoopbackServer.h"

#include <QTcpSocket>
#include <QTest>

#include <algorithm>
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
        answered_.push_back(false);
        connect(socket, &QIODevice::readyRead, this, [this, index] { receive(index); });
    }
}

void LoopbackServer::receive(std::size_t index)
{
    const QByteArray data = connections_[index]->readAll();
    Bytes& bytes = received_[index];
    bytes.insert(bytes.end(), data.begin(), data.end());
    constexpr std::size_t kHeader = 8;
    if (answers_.empty() || answered_[index] || bytes.size() < kHeader) {
        return;
    }
    const std::size_t length = bytes[4] | bytes[5] << 8 | bytes[6] << 16 | std::size_t(bytes[7]) << 24;
    if (bytes.size() >= length) {
        answered_[index] = true;
        write(static_cast<int>(index), answers_[std::min(index, answers_.size() - 1)]);
    }
}

} // namespace orbelan::nettest
