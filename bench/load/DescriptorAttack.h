#pragma once

#include "load/Attack.h"
#include "load/ConnectionSwarm.h"
#include "load/ServerProcess.h"

#include <chrono>
#include <cstddef>
#include <string>

namespace orbelan::load {

// More connections than the server has descriptors for. Run against a
// server started with a low RLIMIT_NOFILE.
class DescriptorAttack : public Attack {
public:
    static constexpr std::size_t kConnections = 200;
    static constexpr std::chrono::seconds kCpuWindow{2};
    static constexpr std::chrono::seconds kReconnectTimeout{5};

    // Connects the attackers, then measures the server's CPU use over a
    // quiet window.
    explicit DescriptorAttack(const ServerProcess& server);

    // Closes the attackers, then times a new client's first answer.
    void leave() override;
    std::string observation() const override;

private:
    double cpuPercent() const;
    std::string reconnect() const;
    std::string descriptorLogLines() const;

    const ServerProcess& server_;
    std::size_t logStart_;
    ConnectionSwarm swarm_;
    double cpuPercent_;
    std::string reconnect_;
};

} // namespace orbelan::load
