#include "load/AttackRow.h"

#include "load/RssSampler.h"

#include <thread>

namespace orbelan::load {

AttackRow::AttackRow(const ServerProcess& server, std::chrono::duration<double> clientRun)
    : server_(server), clientRun_(clientRun)
{
}

RowResult AttackRow::run(const std::string& name, const AttackFactory& makeAttack) const
{
    WellBehavedClient client(server_.endpoint());
    RowResult row;
    row.name = name;
    row.control = client.run(clientRun_);
    row.rssBefore = server_.residentKilobytes();
    std::unique_ptr<Attack> attack;
    {
        const RssSampler sampler(server_);
        attack = makeAttack();
        row.attacked = client.run(clientRun_);
        attack->leave();
        row.rssDuring = sampler.peakKilobytes();
    }
    std::this_thread::sleep_for(kSettle);
    row.rssAfter = server_.residentKilobytes();
    // A client that failed before the attack fails the same way during it.
    row.observation = attack->observation() + (row.control->failure.empty() ? clientNote(*row.attacked, "during")
                                                                            : clientNote(*row.control, "before"));
    return row;
}

std::string AttackRow::clientNote(const ClientFigures& figures, const char* when)
{
    if (figures.failure.empty()) {
        return "";
    }
    return std::string("; the well-behaved client failed ") + when + " the attack: " + figures.failure;
}

} // namespace orbelan::load
