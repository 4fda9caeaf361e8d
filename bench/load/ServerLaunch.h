#pragma once

#include <sys/resource.h>

#include <optional>
#include <string>
#include <vector>

namespace orbelan::load {

// How to start orbelan-server for a row.
struct ServerLaunch {
    std::string binary;
    std::string database;
    std::string address = "127.0.0.1";
    // Passed after "serve --db DB --port P".
    std::vector<std::string> extraArguments;
    // The server's stderr and stdout go here.
    std::string logPath;
    // RLIMIT_NOFILE of the server, else the tool's own.
    std::optional<rlim_t> descriptorLimit;
};

} // namespace orbelan::load
