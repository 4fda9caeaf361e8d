#pragma once

#include "load/RowResult.h"
#include "load/ServerLaunch.h"

#include <chrono>
#include <cstddef>

namespace orbelan::load {

// SIGTERM to a server with clients connected: it must exit with 0, say so
// in its log and leave no -wal or -shm file beside the store.
class ShutdownCheck {
public:
    static constexpr std::size_t kClients = 3;
    static constexpr std::chrono::seconds kDeadline{10};

    explicit ShutdownCheck(ServerLaunch launch);

    RowResult run() const;

private:
    std::string leftovers() const;

    ServerLaunch launch_;
};

} // namespace orbelan::load
