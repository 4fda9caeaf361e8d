#include "load/ConnectionSwarm.h"

#include "load/SourceAddresses.h"

#include <poll.h>
#include <stdexcept>

namespace orbelan::load {

ConnectionSwarm::ConnectionSwarm(const sockaddr_in& server, std::size_t count, std::chrono::milliseconds deadline)
    : attempted_(count)
{
    SourceAddresses sources;
    sockets_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        try {
            sockets_.emplace_back(server, SocketOptions{sources.next(), 0});
        } catch (const std::runtime_error&) {
            ++notStarted_;
        }
    }
    awaitHandshakes(deadline);
}

void ConnectionSwarm::awaitHandshakes(std::chrono::milliseconds deadline)
{
    std::vector<pollfd> waiting;
    for (const TcpSocket& socket : sockets_) {
        waiting.push_back({socket.fd(), POLLOUT, 0});
    }
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!waiting.empty() && std::chrono::steady_clock::now() < end) {
        ::poll(waiting.data(), waiting.size(), 50);
        std::erase_if(waiting, [this](const pollfd& entry) {
            if (entry.revents == 0) {
                return false;
            }
            const bool refused = (entry.revents & (POLLERR | POLLHUP)) != 0;
            established_ += refused ? 0 : 1;
            return true;
        });
    }
}

std::size_t ConnectionSwarm::stillOpen() const
{
    std::size_t open = 0;
    for (const TcpSocket& socket : sockets_) {
        open += socket.peerClosed() ? 0 : 1;
    }
    return open;
}

} // namespace orbelan::load
