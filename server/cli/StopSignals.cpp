#include "cli/StopSignals.h"

#include <csignal>
#include <cstring>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace orbelan::server {

namespace {

// One server per process: the handler reaches the pipe through these.
int pipeRead = -1;
int pipeWrite = -1;

extern "C" void writeSignalNumber(int number)
{
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t written = ::write(pipeWrite, &byte, 1);
}

void install(int number, void (*handler)(int))
{
    struct sigaction action {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

} // namespace

StopSignals::StopSignals(QObject* parent)
    : QObject(parent)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::runtime_error(std::string("cannot make the signal pipe: ") + std::strerror(errno));
    }
    pipeRead = ends[0];
    pipeWrite = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(pipeRead, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &StopSignals::readSignal);
    install(SIGTERM, writeSignalNumber);
    install(SIGINT, writeSignalNumber);
}

StopSignals::~StopSignals()
{
    install(SIGTERM, SIG_DFL);
    install(SIGINT, SIG_DFL);
    notifier_.reset();
    ::close(pipeRead);
    ::close(pipeWrite);
    pipeRead = pipeWrite = -1;
}

void StopSignals::readSignal()
{
    unsigned char number = 0;
    while (::read(pipeRead, &number, 1) == 1) {
        emit stopRequested(number == SIGINT ? QStringLiteral("SIGINT") : QStringLiteral("SIGTERM"));
    }
}

} // namespace orbelan::server
