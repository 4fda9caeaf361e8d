#pragma once

#include "serving/CellReplyCache.h"

#include <chrono>
#include <cstddef>

namespace orbelan::server {

// What the server gives its clients at most, so that no client, and no crowd
// of them, can take the memory, the descriptors or the time of the others.
struct ServingLimits {
    // Connections open at once, and from one address.
    int connections = 4096;
    int connectionsPerAddress = 64;
    // A connection that neither sends nor takes a byte for this long is closed.
    std::chrono::seconds idleTimeout{600};
    // A request that has started must be whole within this time.
    std::chrono::seconds requestTimeout{30};
    // Replies waiting to be sent, all connections together; past it the
    // connections with the largest backlog are closed.
    std::size_t unsentBudget = 256u * 1024 * 1024;
    // Replies waiting to be sent above which a connection reads no further
    // request until its client takes some.
    std::size_t unsentPerConnection = 4u * 1024 * 1024;
    // Cell replies kept once built, counted at the memory they take.
    std::size_t cacheBudget = CellReplyCache::kDefaultBudget;
};

} // namespace orbelan::server
