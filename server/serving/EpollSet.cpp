#include "serving/EpollSet.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace orbelan::server {

namespace {

[[noreturn]] void fail(const char* what)
{
    throw std::runtime_error(std::string(what) + ": " + std::strerror(errno));
}

epoll_event eventOf(std::uint64_t key, std::uint32_t events)
{
    epoll_event event{};
    event.events = events;
    event.data.u64 = key;
    return event;
}

} // namespace

EpollSet::EpollSet()
    : epoll_(epoll_create1(EPOLL_CLOEXEC))
{
    if (epoll_ < 0) {
        fail("cannot create an epoll set");
    }
}

EpollSet::~EpollSet()
{
    ::close(epoll_);
}

void EpollSet::add(int fd, std::uint64_t key, std::uint32_t events)
{
    epoll_event event = eventOf(key, events);
    if (epoll_ctl(epoll_, EPOLL_CTL_ADD, fd, &event) != 0) {
        fail("cannot watch a socket");
    }
}

void EpollSet::change(int fd, std::uint64_t key, std::uint32_t events)
{
    epoll_event event = eventOf(key, events);
    if (epoll_ctl(epoll_, EPOLL_CTL_MOD, fd, &event) != 0) {
        fail("cannot change what a socket is watched for");
    }
}

void EpollSet::remove(int fd)
{
    epoll_ctl(epoll_, EPOLL_CTL_DEL, fd, nullptr);
}

std::span<const epoll_event> EpollSet::wait(int timeoutMs)
{
    const int count = epoll_wait(epoll_, ready_, kBatch, timeoutMs);
    if (count < 0) {
        if (errno == EINTR) {
            return {};
        }
        fail("cannot wait for sockets");
    }
    return {ready_, static_cast<std::size_t>(count)};
}

} // namespace orbelan::server
