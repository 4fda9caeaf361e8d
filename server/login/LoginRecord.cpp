#include "login/LoginRecord.h"

#include <algorithm>

namespace orbelan::server {

LoginRecord::LoginRecord(std::chrono::hours validity, std::size_t capacity)
    : validity_(validity),
      capacity_(std::max<std::size_t>(capacity, 1))
{
}

std::string LoginRecord::keyOf(const std::string& address, std::int32_t user)
{
    return std::to_string(user) + " " + address;
}

void LoginRecord::loggedIn(const std::string& address, std::int32_t user, LoginTime now)
{
    const std::string key = keyOf(address, user);
    if (!logins_.contains(key) && logins_.size() >= capacity_) {
        makeRoom(now);
    }
    logins_[key] = now;
}

bool LoginRecord::vouchesFor(const std::string& address, std::int32_t user, LoginTime now) const
{
    const auto found = logins_.find(keyOf(address, user));
    return found != logins_.end() && now - found->second < validity_;
}

void LoginRecord::makeRoom(LoginTime now)
{
    std::erase_if(logins_, [&](const auto& item) { return now - item.second >= validity_; });
    if (logins_.size() < capacity_) {
        return;
    }
    logins_.erase(std::min_element(logins_.begin(), logins_.end(), [](const auto& a, const auto& b) {
        return a.second < b.second;
    }));
}

} // namespace orbelan::server
