#pragma once

#include <cstdint>
#include <span>

#include <sys/epoll.h>

namespace orbelan::server {

// The descriptors the server waits on, in one epoll set: a wait costs the
// same however many of them are idle. Each descriptor carries a key that
// comes back with its events. The set's own descriptor becomes readable when
// any event is ready, so a Qt event loop can watch the whole set through one
// notifier.
class EpollSet {
public:
    EpollSet();
    ~EpollSet();
    EpollSet(const EpollSet&) = delete;
    EpollSet& operator=(const EpollSet&) = delete;

    int descriptor() const { return epoll_; }
    // events: EPOLLIN, EPOLLOUT ... (level-triggered).
    void add(int fd, std::uint64_t key, std::uint32_t events);
    void change(int fd, std::uint64_t key, std::uint32_t events);
    void remove(int fd);
    // The ready events, waiting at most timeoutMs (0: do not wait).
    std::span<const epoll_event> wait(int timeoutMs);

private:
    static constexpr int kBatch = 256;

    int epoll_;
    epoll_event ready_[kBatch];
};

} // namespace orbelan::server
