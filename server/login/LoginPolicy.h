#pragma once

#include "login/LoginClock.h"
#include "protocol/messages/LoginAnswer.h"

#include <chrono>

namespace orbelan::server {

// What the server asks of a client before it serves a map, and what it tells
// one that logs in. By default an access request for a user is served only
// to a peer address that logged in as that user within the validity; a
// server behind a gateway that authenticates its users trusts the user ids
// of the access requests instead.
struct LoginPolicy {
    static constexpr std::chrono::hours kDefaultValidity{12};

    std::chrono::hours validity = kDefaultValidity;
    bool trustUserIds = false;
    // The version of the client that logging in announces as current.
    messages::LoginAnswer::Version clientVersion = builtVersion();
    LoginClock clock = [] { return std::chrono::steady_clock::now(); };

    static messages::LoginAnswer::Version builtVersion();
    // Every access request is believed, as by a server behind a gateway (and
    // by tests that do not log in).
    static LoginPolicy trustingUserIds()
    {
        LoginPolicy policy;
        policy.trustUserIds = true;
        return policy;
    }
};

} // namespace orbelan::server
