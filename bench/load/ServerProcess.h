#pragma once

#include "load/ServerLaunch.h"

#include <netinet/in.h>
#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::load {

// orbelan-server as a child process: started on a free loopback port, watched
// through /proc, stopped with a signal. A server still running when this is
// destroyed is killed.
class ServerProcess {
public:
    // How the process ended.
    struct Exit {
        bool exited = false;
        int status = 0;
        // Still running at the deadline, then killed.
        bool killed = false;
        std::string text() const;
    };

    // Starts the server and returns once it accepts connections; throws
    // with the log's end when it does not.
    explicit ServerProcess(ServerLaunch launch);
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    const ServerLaunch& launch() const { return launch_; }
    sockaddr_in endpoint() const;
    // VmRSS in kB, 0 once the process is gone.
    long residentKilobytes() const;
    // User and system CPU time so far.
    double cpuSeconds() const;
    std::vector<std::string> logLines() const;

    // Sends the signal and waits for the end; past the deadline the process
    // is killed.
    Exit stop(int signal, std::chrono::milliseconds deadline);

private:
    void spawn();
    [[noreturn]] void becomeServer(const std::vector<char*>& arguments, int log) const;
    void awaitListening();
    bool exitedYet(Exit& exit);
    std::string procFile(const char* name) const;

    ServerLaunch launch_;
    std::uint16_t port_ = 0;
    pid_t pid_ = -1;
};

} // namespace orbelan::load
