#include "login/LoginThrottle.h"

#include <algorithm>
#include <iterator>

namespace orbelan::server {

LoginThrottle::LoginThrottle(std::size_t capacity)
    : capacity_(std::max<std::size_t>(capacity, 1))
{
}

std::chrono::seconds LoginThrottle::waitAfter(int failures)
{
    if (failures < kFreeFailures) {
        return std::chrono::seconds{0};
    }
    // Past the cap the doubling stops (and cannot overflow).
    const int doublings = std::min(failures - kFreeFailures, 20);
    const std::chrono::seconds wait = kFirstWait * (std::chrono::seconds::rep{1} << doublings);
    return std::min(wait, std::chrono::seconds{kLongestWait});
}

std::chrono::seconds LoginThrottle::waitLeft(const std::string& key, LoginTime now) const
{
    const auto found = entries_.find(key);
    if (found == entries_.end()) {
        return std::chrono::seconds{0};
    }
    const LoginTime until = found->second.last + waitAfter(found->second.failures);
    if (until <= now) {
        return std::chrono::seconds{0};
    }
    // Rounded up: a client told "1 s" that waits 1 s is let in.
    return std::chrono::ceil<std::chrono::seconds>(until - now);
}

void LoginThrottle::failed(const std::string& key, LoginTime now)
{
    if (!entries_.contains(key) && entries_.size() >= capacity_) {
        makeRoom(now);
    }
    Entry& entry = entries_[key];
    ++entry.failures;
    entry.last = now;
}

void LoginThrottle::makeRoom(LoginTime now)
{
    std::erase_if(entries_, [&](const auto& item) {
        const Entry& entry = item.second;
        return entry.last + std::max<std::chrono::seconds>(waitAfter(entry.failures), kForgetAfter) <= now;
    });
    if (entries_.size() < capacity_) {
        return;
    }
    const auto oldest = std::min_element(entries_.begin(), entries_.end(), [](const auto& a, const auto& b) {
        return a.second.last < b.second.last;
    });
    entries_.erase(oldest);
}

} // namespace orbelan::server
