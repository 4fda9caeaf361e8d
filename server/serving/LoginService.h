#pragma once

#include "login/LoginPolicy.h"
#include "login/LoginRecord.h"
#include "login/LoginThrottle.h"
#include "login/PasswordHasher.h"
#include "protocol/DWBUffer.h"
#include "serving/HandlerOutcome.h"
#include "serving/SessionState.h"
#include "storage/Database.h"
#include "storage/UserStore.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace orbelan::server {

// Logins and password changes, and the record of who logged in from where.
// Runs on the serving thread; the passwords are checked by the hasher's
// threads, so a request that needs one is answered later: its connection
// waits (HandlerOutcome::Action::Await) and the server hands the answer back
// to it when the hasher's descriptor says a check has finished.
//
// Failed attempts are counted per peer address and per user name; while
// either must wait, an attempt is refused at once, without a check.
class LoginService {
public:
    // An answer for a connection that waited for a password check.
    struct Answered {
        std::uint64_t connection = 0;
        HandlerOutcome outcome;
    };

    LoginService(Database& database, LoginPolicy policy);

    // Request 12.
    HandlerOutcome login(const SessionState& session, DWBUffer& message);
    // Request 120, from a connection that has passed the access request.
    HandlerOutcome changePassword(const SessionState& session, DWBUffer& message);
    // Why an access request for the user from the address is refused, or
    // nothing when it may go on.
    std::optional<std::string> refusesAccess(const std::string& address, std::int32_t user) const;

    // Readable while finished checks wait to be collected.
    int descriptor() const { return hasher_.descriptor(); }
    std::vector<Answered> collect();

private:
    struct Pending {
        std::uint64_t connection = 0;
        std::int32_t user = 0;
        std::string name;
        std::string address;
        // What the log calls the attempt ("login of NAME from ADDR").
        std::string attempt;
        bool change = false;
    };

    // The refusal of an attempt while its address or name must still wait.
    std::optional<HandlerOutcome> mustWait(const Pending& pending) const;
    void failed(const Pending& pending);
    HandlerOutcome check(Pending pending, PasswordHasher::Job job);
    HandlerOutcome refused(const Pending& pending, const std::string& why) const;
    HandlerOutcome finish(const Pending& pending, const PasswordHasher::Result& result);
    HandlerOutcome loggedIn(const Pending& pending);
    HandlerOutcome changed(const Pending& pending, const std::string& newHash);

    LoginPolicy policy_;
    UserStore users_;
    LoginRecord record_;
    LoginThrottle byAddress_;
    LoginThrottle byName_;
    PasswordHasher hasher_;
    std::unordered_map<std::uint64_t, Pending> pending_;
    std::uint64_t tickets_ = 0;
};

} // namespace orbelan::server
