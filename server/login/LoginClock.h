#pragma once

#include <chrono>
#include <functional>

namespace orbelan::server {

// The time logins are judged by; tests put their own in.
using LoginTime = std::chrono::steady_clock::time_point;
using LoginClock = std::function<LoginTime()>;

} // namespace orbelan::server
