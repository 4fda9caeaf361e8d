#pragma once

// A blocking client connection to a server on loopback, for benchmarks.

#include "protocol/MessageFramer.h"
#include "protocol/messages/MessageIO.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <deque>
#include <stdexcept>
#include <vector>

namespace orbelan {

class LoadClient {
public:
    explicit LoadClient(quint16 port)
    {
        socket_.connectToHost(QHostAddress::LocalHost, port);
        if (!socket_.waitForConnected(10'000)) {
            throw std::runtime_error("cannot connect to the server");
        }
    }

    template <typename Request>
    void send(const Request& request)
    {
        const auto bytes = messages::buildMessage(request).buffer();
        socket_.write(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<qint64>(bytes.size()));
    }

    // The next whole message, read from its start.
    DWBUffer receive()
    {
        while (ready_.empty()) {
            if (!socket_.waitForReadyRead(10'000)) {
                throw std::runtime_error("nothing came from the server");
            }
            const QByteArray chunk = socket_.readAll();
            const Arrival arrival =
                framer_.feed({reinterpret_cast<const std::uint8_t*>(chunk.constData()),
                              static_cast<std::size_t>(chunk.size())});
            for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
                ready_.emplace_back(arrival.messages[i].begin(), arrival.messages[i].end());
            }
        }
        DWBUffer message(ready_.front());
        ready_.pop_front();
        return message;
    }

    template <typename Reply, typename Request>
    Reply ask(const Request& request)
    {
        send(request);
        DWBUffer message = receive();
        if (messages::readHeader(message) != Reply::kCode) {
            throw std::runtime_error("another message came than the reply");
        }
        return Reply::decode(message);
    }

private:
    QTcpSocket socket_;
    MessageFramer framer_;
    std::deque<std::vector<std::uint8_t>> ready_;
};

} // namespace orbelan
