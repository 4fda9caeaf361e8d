#pragma once

#include <netinet/in.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace orbelan::load {

// How a client socket is set up before it connects.
struct SocketOptions {
    // The local address to connect from (127.0.0.2, 127.0.0.3 ...); the
    // kernel's choice when empty.
    std::optional<in_addr> source;
    // SO_RCVBUF in bytes, set before connecting so that the window stays
    // small; the system default when 0.
    int receiveBuffer = 0;
};

// One non-blocking TCP client socket on loopback, closed when destroyed.
class TcpSocket {
public:
    // Starts connecting without waiting for the handshake.
    TcpSocket(const sockaddr_in& server, const SocketOptions& options);
    ~TcpSocket();
    TcpSocket(TcpSocket&& other) noexcept;
    TcpSocket& operator=(TcpSocket&& other) noexcept;
    TcpSocket(const TcpSocket&) = delete;
    TcpSocket& operator=(const TcpSocket&) = delete;

    // An IPv4 address and port; throws for anything that is not loopback.
    static sockaddr_in loopback(const std::string& address, std::uint16_t port);

    int fd() const { return fd_; }
    // True once the handshake is done, false when the timeout passed first;
    // throws when the connection was refused.
    bool waitConnected(std::chrono::milliseconds timeout) const;
    // Bytes written, 0 when the send buffer is full; empty when the
    // connection is broken.
    std::optional<std::size_t> sendSome(std::span<const std::uint8_t> bytes) const;
    // Bytes read, 0 when nothing is waiting; empty when the peer closed.
    std::optional<std::size_t> receiveSome(std::span<std::uint8_t> into) const;
    // Whether the peer has closed or reset the connection, without waiting
    // and without consuming data.
    bool peerClosed() const;

private:
    void prepare(const SocketOptions& options) const;
    void close();

    int fd_ = -1;
};

// Waits until fd has one of events; false when the timeout passed first.
bool waitFor(int fd, short events, std::chrono::milliseconds timeout);

} // namespace orbelan::load
