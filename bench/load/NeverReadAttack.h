#pragma once

#include "load/Attack.h"
#include "load/LargestCell.h"
#include "load/WireConnection.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <thread>
#include <vector>

namespace orbelan::load {

// Clients with a small receive window that ask for the largest cell over
// and over and never read a reply.
class NeverReadAttack : public Attack {
public:
    static constexpr std::size_t kClients = 100;
    static constexpr int kReceiveBuffer = 4096;
    // Requests written per attempt.
    static constexpr std::size_t kBurst = 256;

    NeverReadAttack(const sockaddr_in& server, LargestCell target);

    void leave() override;
    std::string observation() const override;

private:
    void pump(const std::stop_token& stop);
    bool sendBurst(const WireConnection& client);

    LargestCell target_;
    std::vector<WireConnection> clients_;
    std::vector<std::uint8_t> burst_;
    std::atomic<std::uint64_t> bytesSent_{0};
    std::size_t closedByServer_ = 0;
    std::jthread pump_;
};

} // namespace orbelan::load
