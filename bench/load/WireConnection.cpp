#include "load/WireConnection.h"

#include <poll.h>

namespace orbelan::load {

namespace {

using Clock = std::chrono::steady_clock;

std::chrono::milliseconds left(Clock::time_point deadline)
{
    const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    return std::max(rest, std::chrono::milliseconds{0});
}

} // namespace

WireConnection::WireConnection(const sockaddr_in& server, const SocketOptions& options)
    : socket_(server, options), scratch_(256 * 1024)
{
    if (!socket_.waitConnected(kTimeout)) {
        throw std::runtime_error("the server did not take the connection in time");
    }
}

void WireConnection::send(std::span<const std::uint8_t> bytes)
{
    const auto deadline = Clock::now() + kTimeout;
    while (!bytes.empty()) {
        const auto sent = socket_.sendSome(bytes);
        if (!sent) {
            throw std::runtime_error("the server closed the connection");
        }
        bytes = bytes.subspan(*sent);
        if (!bytes.empty() && !waitFor(socket_.fd(), POLLOUT, left(deadline))) {
            throw std::runtime_error("the server took no bytes for " + std::to_string(kTimeout.count()) + " ms");
        }
    }
}

std::vector<std::uint8_t> WireConnection::receive(std::chrono::milliseconds timeout)
{
    const auto deadline = Clock::now() + timeout;
    while (ready_.empty()) {
        if (!open_) {
            throw std::runtime_error("the server closed the connection");
        }
        if (!waitFor(socket_.fd(), POLLIN, left(deadline))) {
            throw std::runtime_error("no reply within " + std::to_string(timeout.count()) + " ms");
        }
        readArrived(true);
    }
    std::vector<std::uint8_t> message = std::move(ready_.front());
    ready_.pop_front();
    return message;
}

std::size_t WireConnection::discardArrived()
{
    const std::size_t count = ready_.size();
    ready_.clear();
    return count + readArrived(false);
}

bool WireConnection::awaitClosed(std::chrono::milliseconds timeout)
{
    const auto deadline = Clock::now() + timeout;
    ready_.clear();
    while (open_ && waitFor(socket_.fd(), POLLIN, left(deadline))) {
        readArrived(false);
    }
    return !open_;
}

std::size_t WireConnection::readArrived(bool keep)
{
    std::size_t count = 0;
    for (;;) {
        const auto received = socket_.receiveSome(scratch_);
        if (!received) {
            open_ = false;
        }
        if (!received || *received == 0) {
            return count;
        }
        const Arrival arrival = framer_.feed(std::span(scratch_).first(*received));
        count += arrival.messages.size();
        for (std::size_t i = 0; keep && i < arrival.messages.size(); ++i) {
            ready_.emplace_back(arrival.messages[i].begin(), arrival.messages[i].end());
        }
    }
}

} // namespace orbelan::load
