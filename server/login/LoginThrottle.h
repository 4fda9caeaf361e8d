#pragma once

#include "login/LoginClock.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <unordered_map>

namespace orbelan::server {

// Counts failed logins by one key (a peer address, or a user name) and says
// how long the next attempt must wait: the first few failures are free, then
// each one doubles the wait, up to a cap, counted from the last failure. A
// key whose wait has expired and that has not failed for a while is
// forgotten, and the table never holds more than its cap of keys (the ones
// that failed longest ago go first).
class LoginThrottle {
public:
    static constexpr int kFreeFailures = 3;
    static constexpr std::chrono::seconds kFirstWait{1};
    static constexpr std::chrono::seconds kLongestWait{15 * 60};
    static constexpr std::chrono::seconds kForgetAfter{60 * 60};
    static constexpr std::size_t kDefaultCapacity = 100'000;

    explicit LoginThrottle(std::size_t capacity = kDefaultCapacity);

    // How long an attempt for the key must still wait; zero when it may go on.
    std::chrono::seconds waitLeft(const std::string& key, LoginTime now) const;
    void failed(const std::string& key, LoginTime now);
    void succeeded(const std::string& key) { entries_.erase(key); }
    std::size_t size() const { return entries_.size(); }

private:
    struct Entry {
        int failures = 0;
        LoginTime last;
    };

    static std::chrono::seconds waitAfter(int failures);
    void makeRoom(LoginTime now);

    std::size_t capacity_;
    std::unordered_map<std::string, Entry> entries_;
};

} // namespace orbelan::server
