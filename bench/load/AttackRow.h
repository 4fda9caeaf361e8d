#pragma once

#include "load/Attack.h"
#include "load/RowResult.h"
#include "load/ServerProcess.h"
#include "load/WellBehavedClient.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace orbelan::load {

// One row that loads the server: the well-behaved client's control run, then
// the same client while the attack runs, then the server's memory a few
// seconds after the attackers left.
class AttackRow {
public:
    using AttackFactory = std::function<std::unique_ptr<Attack>()>;
    static constexpr std::chrono::seconds kSettle{3};

    AttackRow(const ServerProcess& server, std::chrono::duration<double> clientRun);

    // The client connects before anything else happens; the attack is made
    // after the control run.
    RowResult run(const std::string& name, const AttackFactory& makeAttack) const;

private:
    static std::string clientNote(const ClientFigures& figures, const char* when);

    const ServerProcess& server_;
    std::chrono::duration<double> clientRun_;
};

} // namespace orbelan::load
