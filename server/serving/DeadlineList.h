#pragma once

#include <chrono>
#include <cstdint>
#include <list>
#include <unordered_map>
#include <utility>
#include <vector>

namespace orbelan::server {

// Keys in the order of their times, which only grow: a key touched moves to
// the end. Finding the keys older than a limit looks only at the oldest
// ones, so checking timeouts costs nothing for connections that have none.
class DeadlineList {
public:
    using Clock = std::chrono::steady_clock;

    // Puts the key at the end with the time, or leaves it where it is when
    // it already has that time.
    void touch(std::uint64_t key, Clock::time_point time);
    // Adds the key at the end, unless it is already in the list.
    void add(std::uint64_t key, Clock::time_point time);
    void remove(std::uint64_t key);
    // The keys whose time is before the limit, oldest first.
    std::vector<std::uint64_t> before(Clock::time_point limit) const;

private:
    using Order = std::list<std::pair<std::uint64_t, Clock::time_point>>;

    Order order_;
    std::unordered_map<std::uint64_t, Order::iterator> where_;
};

} // namespace orbelan::server
