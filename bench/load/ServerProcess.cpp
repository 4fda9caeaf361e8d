#include "load/ServerProcess.h"

#include "load/TcpSocket.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace orbelan::load {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kStartTimeout{15};
constexpr std::chrono::milliseconds kPollInterval{20};

// A port nobody listens on now; the server takes it a moment later.
std::uint16_t freePort(const std::string& address)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in local = TcpSocket::loopback(address, 0);
    socklen_t size = sizeof local;
    const bool found = fd >= 0 && ::bind(fd, reinterpret_cast<const sockaddr*>(&local), size) == 0 &&
                       ::getsockname(fd, reinterpret_cast<sockaddr*>(&local), &size) == 0;
    if (fd >= 0) {
        ::close(fd);
    }
    if (!found) {
        throw std::runtime_error("no free port on " + address + ": " + std::strerror(errno));
    }
    return ntohs(local.sin_port);
}

std::string lastLines(const std::vector<std::string>& lines, std::size_t count)
{
    std::string text;
    for (std::size_t i = lines.size() > count ? lines.size() - count : 0; i < lines.size(); ++i) {
        text += "\n  " + lines[i];
    }
    return text;
}

} // namespace

std::string ServerProcess::Exit::text() const
{
    if (killed) {
        return "still running at the deadline, killed";
    }
    if (exited) {
        return "exit " + std::to_string(status);
    }
    return std::string("ended by signal ") + std::to_string(status) + " (" + ::strsignal(status) + ")";
}

ServerProcess::ServerProcess(ServerLaunch launch) : launch_(std::move(launch)), port_(freePort(launch_.address))
{
    spawn();
    try {
        awaitListening();
    } catch (...) {
        stop(SIGKILL, kStartTimeout);
        throw;
    }
}

ServerProcess::~ServerProcess()
{
    if (pid_ > 0) {
        stop(SIGKILL, kStartTimeout);
    }
}

sockaddr_in ServerProcess::endpoint() const
{
    return TcpSocket::loopback(launch_.address, port_);
}

void ServerProcess::spawn()
{
    // The load clients ask for access without logging in: the server
    // believes their user ids.
    std::vector<std::string> words{launch_.binary, "serve", "--db", launch_.database, "--listen",
                                   launch_.address, "--port", std::to_string(port_),
                                   "--trust-user-ids"};
    words.insert(words.end(), launch_.extraArguments.begin(), launch_.extraArguments.end());
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const int log = ::open(launch_.logPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (log < 0) {
        throw std::runtime_error("cannot write the server log " + launch_.logPath + ": " + std::strerror(errno));
    }
    pid_ = ::fork();
    if (pid_ == 0) {
        becomeServer(arguments, log);
    }
    ::close(log);
    if (pid_ < 0) {
        throw std::runtime_error(std::string("fork: ") + std::strerror(errno));
    }
}

// Runs in the child between fork and exec: only async-signal-safe calls.
void ServerProcess::becomeServer(const std::vector<char*>& arguments, int log) const
{
    if (launch_.descriptorLimit) {
        const rlimit limit{*launch_.descriptorLimit, *launch_.descriptorLimit};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    ::signal(SIGPIPE, SIG_DFL);
    const int nothing = ::open("/dev/null", O_RDONLY);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(log, STDOUT_FILENO);
    ::dup2(log, STDERR_FILENO);
    ::execv(arguments.front(), arguments.data());
    ::_exit(127);
}

void ServerProcess::awaitListening()
{
    const auto deadline = Clock::now() + kStartTimeout;
    Exit exit;
    while (Clock::now() < deadline) {
        if (exitedYet(exit)) {
            throw std::runtime_error("the server ended (" + exit.text() + ") before it listened:" +
                                     lastLines(logLines(), 5));
        }
        try {
            if (TcpSocket(endpoint(), {}).waitConnected(kPollInterval)) {
                return;
            }
        } catch (const std::runtime_error&) {
            std::this_thread::sleep_for(kPollInterval);
        }
    }
    throw std::runtime_error("the server did not listen within 15 s:" + lastLines(logLines(), 5));
}

bool ServerProcess::exitedYet(Exit& exit)
{
    int status = 0;
    if (pid_ <= 0 || ::waitpid(pid_, &status, WNOHANG) != pid_) {
        return false;
    }
    pid_ = -1;
    exit.exited = WIFEXITED(status);
    exit.status = exit.exited ? WEXITSTATUS(status) : WTERMSIG(status);
    return true;
}

ServerProcess::Exit ServerProcess::stop(int signal, std::chrono::milliseconds deadline)
{
    Exit exit;
    if (pid_ <= 0) {
        return exit;
    }
    ::kill(pid_, signal);
    const auto end = Clock::now() + deadline;
    while (Clock::now() < end) {
        if (exitedYet(exit)) {
            return exit;
        }
        std::this_thread::sleep_for(kPollInterval);
    }
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
    pid_ = -1;
    exit.killed = true;
    return exit;
}

std::string ServerProcess::procFile(const char* name) const
{
    std::ifstream file("/proc/" + std::to_string(pid_) + "/" + name);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

long ServerProcess::residentKilobytes() const
{
    const std::string status = procFile("status");
    const auto at = status.find("VmRSS:");
    if (pid_ <= 0 || at == std::string::npos) {
        return 0;
    }
    return std::stol(status.substr(at + 6));
}

// Fields 14 and 15 of /proc/PID/stat, counted after the command name, which
// may itself hold spaces and parentheses.
double ServerProcess::cpuSeconds() const
{
    const std::string stat = procFile("stat");
    const auto close = stat.rfind(')');
    if (pid_ <= 0 || close == std::string::npos) {
        return 0.0;
    }
    std::istringstream fields(stat.substr(close + 1));
    std::string skipped;
    for (int field = 3; field < 14; ++field) {
        fields >> skipped;
    }
    unsigned long long user = 0;
    unsigned long long system = 0;
    fields >> user >> system;
    return static_cast<double>(user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

std::vector<std::string> ServerProcess::logLines() const
{
    std::ifstream file(launch_.logPath);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace orbelan::load
