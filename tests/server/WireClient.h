#pragma once

#include "protocol/DWBUffer.h"
#include "protocol/MessageFramer.h"
#include "protocol/messages/MessageIO.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

// A blocking client that speaks only the wire protocol, for tests.
class WireClient {
public:
    explicit WireClient(quint16 port);
    // Connects from the given loopback address; a receive buffer above 0
    // makes the socket take few replies before the server has to keep them.
    WireClient(quint16 port, const QHostAddress& from, int receiveBuffer = 0);

    void sendBytes(const std::vector<std::uint8_t>& bytes);
    template <typename Message>
    void send(const Message& message)
    {
        sendBytes(orbelan::messages::buildMessage(message).buffer());
    }
    // The next whole message, read up to its payload; nothing when none
    // comes within a few seconds or the connection closes.
    std::optional<orbelan::DWBUffer> receive();
    // Decodes the next message as the expected reply.
    template <typename Message>
    std::optional<Message> reply()
    {
        auto message = receive();
        if (!message || orbelan::messages::readHeader(*message) != Message::kCode) {
            return std::nullopt;
        }
        return Message::decode(*message);
    }
    // True when the server closes the connection within a few seconds.
    bool closedByServer();
    // Sends the request and decodes its reply.
    template <typename Reply, typename Request>
    std::optional<Reply> ask(const Request& request)
    {
        send(request);
        return reply<Reply>();
    }

private:
    QTcpSocket socket_;
    orbelan::MessageFramer framer_;
    std::deque<std::vector<std::uint8_t>> ready_;
};
