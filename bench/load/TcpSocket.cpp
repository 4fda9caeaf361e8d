#include "load/TcpSocket.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace orbelan::load {

namespace {

[[noreturn]] void fail(const std::string& what)
{
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

bool brokenConnection(int error)
{
    return error == EPIPE || error == ECONNRESET || error == ENOTCONN || error == ETIMEDOUT;
}

} // namespace

TcpSocket::TcpSocket(const sockaddr_in& server, const SocketOptions& options)
    : fd_(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
{
    if (fd_ < 0) {
        fail("socket");
    }
    prepare(options);
    if (::connect(fd_, reinterpret_cast<const sockaddr*>(&server), sizeof server) != 0 &&
        errno != EINPROGRESS) {
        const int error = errno;
        close();
        errno = error;
        fail("connect");
    }
}

TcpSocket::~TcpSocket()
{
    close();
}

TcpSocket::TcpSocket(TcpSocket&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}

TcpSocket& TcpSocket::operator=(TcpSocket&& other) noexcept
{
    if (this != &other) {
        close();
        fd_ = std::exchange(other.fd_, -1);
    }
    return *this;
}

sockaddr_in TcpSocket::loopback(const std::string& address, std::uint16_t port)
{
    sockaddr_in result{};
    result.sin_family = AF_INET;
    result.sin_port = htons(port);
    if (::inet_pton(AF_INET, address.c_str(), &result.sin_addr) != 1) {
        throw std::invalid_argument(address + " is not an IPv4 address");
    }
    if ((ntohl(result.sin_addr.s_addr) >> 24) != 127) {
        throw std::invalid_argument(address + " is not a loopback address; the load tool stays on 127.0.0.0/8");
    }
    return result;
}

void TcpSocket::prepare(const SocketOptions& options) const
{
    if (options.receiveBuffer > 0 &&
        ::setsockopt(fd_, SOL_SOCKET, SO_RCVBUF, &options.receiveBuffer, sizeof options.receiveBuffer) != 0) {
        fail("SO_RCVBUF");
    }
    if (!options.source) {
        return;
    }
    // The port is chosen at connect time, so thousands of sockets bound to a
    // few addresses do not exhaust the ephemeral ports early.
    const int on = 1;
    ::setsockopt(fd_, IPPROTO_IP, IP_BIND_ADDRESS_NO_PORT, &on, sizeof on);
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr = *options.source;
    if (::bind(fd_, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
        fail("bind to a source address");
    }
}

bool TcpSocket::waitConnected(std::chrono::milliseconds timeout) const
{
    if (!waitFor(fd_, POLLOUT, timeout)) {
        return false;
    }
    int error = 0;
    socklen_t size = sizeof error;
    ::getsockopt(fd_, SOL_SOCKET, SO_ERROR, &error, &size);
    if (error != 0) {
        errno = error;
        fail("connect");
    }
    return true;
}

std::optional<std::size_t> TcpSocket::sendSome(std::span<const std::uint8_t> bytes) const
{
    const ssize_t sent = ::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent >= 0) {
        return static_cast<std::size_t>(sent);
    }
    if (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR) {
        return 0;
    }
    if (brokenConnection(errno)) {
        return std::nullopt;
    }
    fail("send");
}

std::optional<std::size_t> TcpSocket::receiveSome(std::span<std::uint8_t> into) const
{
    const ssize_t received = ::recv(fd_, into.data(), into.size(), 0);
    if (received > 0) {
        return static_cast<std::size_t>(received);
    }
    if (received == 0 || brokenConnection(errno)) {
        return std::nullopt;
    }
    if (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR) {
        return 0;
    }
    fail("recv");
}

bool TcpSocket::peerClosed() const
{
    pollfd entry{fd_, POLLIN | POLLRDHUP, 0};
    if (::poll(&entry, 1, 0) <= 0) {
        return false;
    }
    if ((entry.revents & (POLLHUP | POLLERR | POLLRDHUP)) != 0) {
        return true;
    }
    std::uint8_t byte = 0;
    return ::recv(fd_, &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 0;
}

void TcpSocket::close()
{
    if (fd_ >= 0) {
        ::close(fd_);
        fd_ = -1;
    }
}

bool waitFor(int fd, short events, std::chrono::milliseconds timeout)
{
    pollfd entry{fd, events, 0};
    const int ready = ::poll(&entry, 1, static_cast<int>(timeout.count()));
    if (ready < 0 && errno != EINTR) {
        fail("poll");
    }
    return ready > 0;
}

} // namespace orbelan::load
