#include "load/NeverReadAttack.h"

#include "load/AttackerPriority.h"
#include "load/SourceAddresses.h"
#include "load/TextFormat.h"
#include "load/WellBehavedClient.h"
#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"

#include <poll.h>
#include <stdexcept>

namespace orbelan::load {

namespace {

std::vector<WireConnection> connectClients(const sockaddr_in& server, std::int32_t map)
{
    SourceAddresses sources;
    std::vector<WireConnection> clients;
    clients.reserve(NeverReadAttack::kClients);
    for (std::size_t i = 0; i < NeverReadAttack::kClients; ++i) {
        WireConnection& client =
            clients.emplace_back(server, SocketOptions{sources.next(), NeverReadAttack::kReceiveBuffer});
        if (!client.ask<messages::AccessAnswer>(messages::AccessRequest{WellBehavedClient::kUser, map}).granted()) {
            throw std::runtime_error("the server refused map " + std::to_string(map) + " to user 1");
        }
    }
    return clients;
}

} // namespace

NeverReadAttack::NeverReadAttack(const sockaddr_in& server, LargestCell target)
    : target_(std::move(target)), clients_(connectClients(server, target_.map))
{
    const auto request = messages::buildMessage(target_.cell);
    for (std::size_t i = 0; i < kBurst; ++i) {
        burst_.insert(burst_.end(), request.bytes().begin(), request.bytes().end());
    }
    pump_ = std::jthread([this](const std::stop_token& stop) { pump(stop); });
}

void NeverReadAttack::pump(const std::stop_token& stop)
{
    runAsBackground();
    std::vector<pollfd> entries;
    for (const WireConnection& client : clients_) {
        entries.push_back({client.socket().fd(), POLLOUT, 0});
    }
    std::size_t live = entries.size();
    while (!stop.stop_requested() && live > 0) {
        ::poll(entries.data(), entries.size(), 100);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (entries[i].revents != 0 && !sendBurst(clients_[i])) {
                entries[i].fd = -1; // poll skips it from now on
                --live;
            }
        }
    }
}

// False once the server has closed the connection.
bool NeverReadAttack::sendBurst(const WireConnection& client)
{
    const auto sent = client.socket().sendSome(burst_);
    if (sent) {
        bytesSent_ += *sent;
    }
    return sent.has_value();
}

void NeverReadAttack::leave()
{
    pump_.request_stop();
    pump_.join();
    for (const WireConnection& client : clients_) {
        closedByServer_ += client.socket().peerClosed() ? 1 : 0;
    }
    clients_.clear();
}

std::string NeverReadAttack::observation() const
{
    const std::size_t requestBytes = burst_.size() / kBurst;
    std::string text = grouped(kClients) + " clients wrote " + grouped(bytesSent_ / requestBytes) +
                       " requests without reading for the cell (layer " + std::to_string(target_.cell.layer) +
                       ", row " + std::to_string(target_.cell.row) + ", column " +
                       std::to_string(target_.cell.column) + ") of " + grouped(target_.replyBytes) +
                       " bytes; the server closed " + grouped(closedByServer_);
    if (!target_.note.empty()) {
        text += "; " + target_.note;
    }
    return text;
}

} // namespace orbelan::load
