#pragma once

#include "load/TcpSocket.h"
#include "protocol/MessageFramer.h"
#include "protocol/messages/MessageIO.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace orbelan::load {

// A client connection that speaks the wire protocol: whole messages out,
// whole messages back, with every wait bounded.
class WireConnection {
public:
    static constexpr std::chrono::milliseconds kTimeout{10'000};

    // Connects, waiting at most kTimeout for the handshake.
    explicit WireConnection(const sockaddr_in& server, const SocketOptions& options = {});

    const TcpSocket& socket() const { return socket_; }

    // Writes every byte, waiting while the send buffer is full.
    void send(std::span<const std::uint8_t> bytes);
    template <typename Message>
    void sendMessage(const Message& message)
    {
        send(messages::buildMessage(message).bytes());
    }

    // The next whole message; throws on a timeout or a closed connection.
    std::vector<std::uint8_t> receive(std::chrono::milliseconds timeout = kTimeout);

    // Sends the request and decodes the next message as its reply.
    template <typename Reply, typename Request>
    Reply ask(const Request& request)
    {
        sendMessage(request);
        DWBUffer reply(receive());
        if (messages::readHeader(reply) != Reply::kCode) {
            throw std::runtime_error("the server answered with another reply than " +
                                     std::to_string(codeNumber(Reply::kCode)));
        }
        return Reply::decode(reply);
    }

    // Drops the whole messages held and those among the bytes that have
    // arrived, without waiting; returns how many it dropped.
    std::size_t discardArrived();
    // False once a read has found the connection closed by the server.
    bool open() const { return open_; }

    // Waits for the server to close the connection, dropping what it still
    // sends; false when the timeout passed first.
    bool awaitClosed(std::chrono::milliseconds timeout);

private:
    // Reads what has arrived without waiting; returns how many whole
    // messages it completed, kept in ready_ or dropped.
    std::size_t readArrived(bool keep);

    TcpSocket socket_;
    MessageFramer framer_;
    std::deque<std::vector<std::uint8_t>> ready_;
    std::vector<std::uint8_t> scratch_;
    bool open_ = true;
};

} // namespace orbelan::load
