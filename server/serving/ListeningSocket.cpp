#include "serving/ListeningSocket.h"

#include <cerrno>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orbelan::server {

namespace {

constexpr int kBacklog = 1024;

// The address and port in the form the socket calls take.
socklen_t socketAddress(const QHostAddress& address, std::uint16_t port, sockaddr_storage& out)
{
    out = {};
    if (address.protocol() == QAbstractSocket::IPv6Protocol) {
        auto& v6 = reinterpret_cast<sockaddr_in6&>(out);
        v6.sin6_family = AF_INET6;
        v6.sin6_port = htons(port);
        const Q_IPV6ADDR bytes = address.toIPv6Address();
        std::memcpy(&v6.sin6_addr, bytes.c, sizeof bytes.c);
        return sizeof v6;
    }
    auto& v4 = reinterpret_cast<sockaddr_in&>(out);
    v4.sin_family = AF_INET;
    v4.sin_port = htons(port);
    v4.sin_addr.s_addr = htonl(address.toIPv4Address());
    return sizeof v4;
}

void describePeer(const sockaddr_storage& peer, ListeningSocket::Arrival& arrival)
{
    char text[INET6_ADDRSTRLEN] = {};
    if (peer.ss_family == AF_INET6) {
        const auto& v6 = reinterpret_cast<const sockaddr_in6&>(peer);
        inet_ntop(AF_INET6, &v6.sin6_addr, text, sizeof text);
        arrival.port = ntohs(v6.sin6_port);
    } else {
        const auto& v4 = reinterpret_cast<const sockaddr_in&>(peer);
        inet_ntop(AF_INET, &v4.sin_addr, text, sizeof text);
        arrival.port = ntohs(v4.sin_port);
    }
    arrival.address = text;
}

} // namespace

ListeningSocket::~ListeningSocket()
{
    close();
}

bool ListeningSocket::listen(const QHostAddress& address, std::uint16_t port)
{
    sockaddr_storage bound;
    const socklen_t length = socketAddress(address, port, bound);
    fd_ = ::socket(bound.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (fd_ < 0) {
        return fail("cannot create a socket");
    }
    const int on = 1;
    setsockopt(fd_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (::bind(fd_, reinterpret_cast<const sockaddr*>(&bound), length) != 0) {
        return fail("cannot bind");
    }
    if (::listen(fd_, kBacklog) != 0) {
        return fail("cannot listen");
    }
    socklen_t boundLength = sizeof bound;
    getsockname(fd_, reinterpret_cast<sockaddr*>(&bound), &boundLength);
    port_ = ntohs(reinterpret_cast<const sockaddr_in&>(bound).sin_port);
    return true;
}

bool ListeningSocket::fail(const char* what)
{
    error_ = std::string(what) + ": " + std::strerror(errno);
    close();
    return false;
}

ListeningSocket::Arrival ListeningSocket::accept()
{
    Arrival arrival;
    sockaddr_storage peer{};
    socklen_t length = sizeof peer;
    int fd = -1;
    do {
        length = sizeof peer;
        fd = ::accept4(fd_, reinterpret_cast<sockaddr*>(&peer), &length,
                       SOCK_NONBLOCK | SOCK_CLOEXEC);
        // A client that gave up while waiting: take the next one.
    } while (fd < 0 && (errno == ECONNABORTED || errno == EPROTO || errno == EINTR));
    if (fd < 0) {
        const bool exhausted =
            errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
        arrival.outcome = exhausted ? Outcome::OutOfDescriptors : Outcome::NoneWaiting;
        return arrival;
    }
    // Replies are gathered and written whole; the client waits for each.
    const int on = 1;
    setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    arrival.outcome = Outcome::Accepted;
    arrival.fd = fd;
    describePeer(peer, arrival);
    return arrival;
}

void ListeningSocket::close()
{
    if (fd_ >= 0) {
        ::close(fd_);
        fd_ = -1;
    }
}

} // namespace orbelan::server
