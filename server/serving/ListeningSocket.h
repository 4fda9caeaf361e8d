#pragma once

#include <QHostAddress>

#include <cstdint>
#include <string>

namespace orbelan::server {

// The server's listening TCP socket, non-blocking, handing out the
// connections that arrive as non-blocking descriptors.
class ListeningSocket {
public:
    enum class Outcome {
        Accepted,
        // Nothing is waiting (or the waiting client gave up).
        NoneWaiting,
        // The process or the system has no descriptor left.
        OutOfDescriptors,
    };

    struct Arrival {
        Outcome outcome = Outcome::NoneWaiting;
        int fd = -1;
        // The client's address as text, and its port.
        std::string address;
        std::uint16_t port = 0;
    };

    ListeningSocket() = default;
    ~ListeningSocket();
    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;

    // False, with errorString() telling why, when the address cannot be bound.
    bool listen(const QHostAddress& address, std::uint16_t port);
    bool isListening() const { return fd_ >= 0; }
    int descriptor() const { return fd_; }
    std::uint16_t port() const { return port_; }
    const std::string& errorString() const { return error_; }
    Arrival accept();
    void close();

private:
    bool fail(const char* what);

    int fd_ = -1;
    std::uint16_t port_ = 0;
    std::string error_;
};

} // namespace orbelan::server
