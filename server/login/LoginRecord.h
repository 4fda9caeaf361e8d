#pragma once

#include "login/LoginClock.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace orbelan::server {

// Which user last logged in successfully from which peer address, and when.
// A record older than the validity is worth nothing and is dropped when room
// is needed; past the cap the oldest record goes.
class LoginRecord {
public:
    static constexpr std::size_t kDefaultCapacity = 100'000;

    LoginRecord(std::chrono::hours validity, std::size_t capacity = kDefaultCapacity);

    void loggedIn(const std::string& address, std::int32_t user, LoginTime now);
    // The address logged in as the user within the validity.
    bool vouchesFor(const std::string& address, std::int32_t user, LoginTime now) const;

private:
    static std::string keyOf(const std::string& address, std::int32_t user);
    void makeRoom(LoginTime now);

    std::chrono::hours validity_;
    std::size_t capacity_;
    std::unordered_map<std::string, LoginTime> logins_;
};

} // namespace orbelan::server
