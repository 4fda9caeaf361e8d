// orbelan-load: reproduces hostile loads on orbelan-server over loopback and
// reports a well-behaved client's throughput and the server's memory beside
// a control run without the attack.

#include "load/LoadOptions.h"
#include "load/LoadReport.h"
#include "load/LoadTool.h"

#include <sys/resource.h>

#include <csignal>
#include <iostream>
#include <stdexcept>

using namespace orbelan::load;

namespace {

// Thousands of attacking sockets need more than the usual soft limit.
void raiseDescriptorLimit()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur < limit.rlim_max) {
        limit.rlim_cur = limit.rlim_max;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
}

int runTool(LoadOptions options)
{
    raiseDescriptorLimit();
    std::signal(SIGPIPE, SIG_IGN);
    LoadTool tool(std::move(options));
    LoadReport::print(std::cout, tool.run());
    std::cerr << "orbelan-load: server logs in " << tool.logDirectory() << "\n";
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    LoadOptions options;
    try {
        options = LoadOptions::parse(argc, argv);
    } catch (const std::invalid_argument& error) {
        std::cerr << "orbelan-load: " << error.what() << "\n" << LoadOptions::usage();
        return 2;
    }
    if (options.help) {
        std::cout << LoadOptions::usage();
        return 0;
    }
    try {
        return runTool(std::move(options));
    } catch (const std::exception& error) {
        std::cerr << "orbelan-load: " << error.what() << "\n";
        return 1;
    }
}
