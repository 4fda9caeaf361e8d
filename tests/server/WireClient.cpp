#include "WireClient.h"

#include <QHostAddress>

#include <sys/socket.h>

namespace {

constexpr int kWaitMs = 5000;

} // namespace

WireClient::WireClient(quint16 port)
{
    socket_.connectToHost(QHostAddress::LocalHost, port);
    socket_.waitForConnected(kWaitMs);
}

WireClient::WireClient(quint16 port, const QHostAddress& from, int receiveBuffer)
{
    socket_.bind(from);
    if (receiveBuffer > 0) {
        // Before connecting, so that the window the client offers stays small.
        setsockopt(static_cast<int>(socket_.socketDescriptor()), SOL_SOCKET, SO_RCVBUF,
                   &receiveBuffer, sizeof receiveBuffer);
    }
    socket_.connectToHost(QHostAddress::LocalHost, port);
    socket_.waitForConnected(kWaitMs);
}

void WireClient::sendBytes(const std::vector<std::uint8_t>& bytes)
{
    socket_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    socket_.waitForBytesWritten(kWaitMs);
}

std::optional<orbelan::DWBUffer> WireClient::receive()
{
    while (ready_.empty()) {
        if (socket_.bytesAvailable() == 0 && !socket_.waitForReadyRead(kWaitMs)) {
            return std::nullopt;
        }
        const QByteArray bytes = socket_.readAll();
        const auto arrival = framer_.feed({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                           static_cast<std::size_t>(bytes.size())});
        for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
            ready_.emplace_back(arrival.messages[i].begin(), arrival.messages[i].end());
        }
    }
    orbelan::DWBUffer message(ready_.front());
    ready_.pop_front();
    return message;
}

bool WireClient::closedByServer()
{
    if (socket_.state() == QAbstractSocket::UnconnectedState) {
        return true;
    }
    while (socket_.waitForReadyRead(kWaitMs)) {
        socket_.readAll();
    }
    return socket_.state() == QAbstractSocket::UnconnectedState;
}
