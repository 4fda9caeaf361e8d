#include "load/IdleAttack.h"

#include "load/TextFormat.h"

namespace orbelan::load {

IdleAttack::IdleAttack(const sockaddr_in& server) : swarm_(server, kConnections, std::chrono::seconds(5)) {}

void IdleAttack::leave()
{
    openAtTheEnd_ = swarm_.stillOpen();
    swarm_.leave();
}

std::string IdleAttack::observation() const
{
    std::string text = grouped(swarm_.attempted()) + " idle connections (at most 50 per source address): " +
                       grouped(swarm_.established()) + " established, " + grouped(openAtTheEnd_) +
                       " still open when they left";
    if (swarm_.notStarted() > 0) {
        text += ", " + grouped(swarm_.notStarted()) + " the tool could not open";
    }
    return text;
}

} // namespace orbelan::load
