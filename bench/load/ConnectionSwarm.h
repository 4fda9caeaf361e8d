#pragma once

#include "load/TcpSocket.h"

#include <chrono>
#include <cstddef>
#include <vector>

namespace orbelan::load {

// Many connections that send nothing, spread over source addresses. Those
// the server has not taken by the deadline (a full listen queue) stay
// pending and are counted apart.
class ConnectionSwarm {
public:
    ConnectionSwarm(const sockaddr_in& server, std::size_t count, std::chrono::milliseconds deadline);

    std::size_t attempted() const { return attempted_; }
    // Sockets the tool could not even start (its own descriptors or
    // addresses ran out).
    std::size_t notStarted() const { return notStarted_; }
    // Handshakes completed by the deadline.
    std::size_t established() const { return established_; }
    // Connections the server has not closed (pending ones included).
    std::size_t stillOpen() const;
    // Closes every connection.
    void leave() { sockets_.clear(); }

private:
    void awaitHandshakes(std::chrono::milliseconds deadline);

    std::size_t attempted_;
    std::vector<TcpSocket> sockets_;
    std::size_t notStarted_ = 0;
    std::size_t established_ = 0;
};

} // namespace orbelan::load
