#include "load/ShutdownCheck.h"

#include "load/MapSurvey.h"
#include "load/ServerProcess.h"
#include "load/WellBehavedClient.h"
#include "load/WireConnection.h"

#include <csignal>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace orbelan::load {

ShutdownCheck::ShutdownCheck(ServerLaunch launch) : launch_(std::move(launch)) {}

RowResult ShutdownCheck::run() const
{
    ServerProcess server(launch_);
    std::vector<WireConnection> clients;
    clients.reserve(kClients);
    std::optional<MapSurvey> map;
    for (std::size_t i = 0; i < kClients; ++i) {
        map = MapSurvey::open(clients.emplace_back(server.endpoint()), WellBehavedClient::kUser,
                              WellBehavedClient::kMap);
    }
    if (!map || map->cells().empty()) {
        throw std::runtime_error("the Santiago map does not open for user 1");
    }
    // One reply is on its way as the signal arrives.
    clients.front().sendMessage(map->cells().front());
    const ServerProcess::Exit exit = server.stop(SIGTERM, kDeadline);
    const auto log = server.logLines();
    const std::string left = leftovers();
    const bool pass = exit.exited && exit.status == 0 && left.empty();
    return RowResult::observed(
        "sigterm", exit.text() + "; last log line: \"" + (log.empty() ? "" : log.back()) + "\"; " +
                           (left.empty() ? "no -wal or -shm left" : left + " left behind") + " — " +
                           (pass ? "PASS" : "FAIL"));
}

std::string ShutdownCheck::leftovers() const
{
    std::string found;
    for (const char* suffix : {"-wal", "-shm"}) {
        if (std::filesystem::exists(launch_.database + suffix)) {
            found += (found.empty() ? "" : " and ") + launch_.database + suffix;
        }
    }
    return found;
}

} // namespace orbelan::load
