#pragma once

#include "load/Attack.h"
#include "load/ConnectionSwarm.h"

namespace orbelan::load {

// Thousands of connections that never send a byte.
class IdleAttack : public Attack {
public:
    static constexpr std::size_t kConnections = 3000;

    explicit IdleAttack(const sockaddr_in& server);

    void leave() override;
    std::string observation() const override;

private:
    ConnectionSwarm swarm_;
    std::size_t openAtTheEnd_ = 0;
};

} // namespace orbelan::load
