#include "serving/LoginService.h"

#include "login/PasswordHash.h"
#include "protocol/messages/ChangePasswordAnswer.h"
#include "protocol/messages/ChangePasswordRequest.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "serving/Replies.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace orbelan::server {

namespace {

using Action = HandlerOutcome::Action;
using messages::ChangePasswordAnswer;
using messages::LoginAnswer;

// The change password answer for anything but a wrong old password.
constexpr std::int16_t kChangeRefused = 2;
// The most of a user name the log shows.
constexpr std::size_t kLoggedNameLength = 64;

// A name as a client sent it, fit for one log line.
std::string printable(const std::string& name)
{
    std::string shown = name.substr(0, kLoggedNameLength);
    std::replace_if(shown.begin(), shown.end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, '?');
    return "\"" + shown + (name.size() > kLoggedNameLength ? "...\"" : "\"");
}

} // namespace

LoginService::LoginService(Database& database, LoginPolicy policy)
    : policy_(std::move(policy)),
      users_(database),
      record_(policy_.validity)
{
}

HandlerOutcome LoginService::login(const SessionState& session, DWBUffer& message)
{
    auto request = messages::LoginRequest::decode(message);
    Pending pending{session.connection, 0, request.user, session.address,
                    "login of " + printable(request.user) + " from " + session.address, false};
    if (auto waiting = mustWait(pending)) {
        return std::move(*waiting);
    }
    const auto user = users_.byName(request.user);
    if (!user || user->passwordHash.empty()) {
        // Only the address counts this failure: there is no password to guess.
        byAddress_.failed(session.address, policy_.clock());
        return refused(pending, user ? "the user has no password" : "no such user");
    }
    pending.user = user->id;
    return check(std::move(pending), {0, user->passwordHash, std::move(request.password), {}});
}

HandlerOutcome LoginService::changePassword(const SessionState& session, DWBUffer& message)
{
    auto request = messages::ChangePasswordRequest::decode(message);
    Pending pending{session.connection, session.user, {}, session.address,
                    "password change of user " + std::to_string(request.user) + " from " +
                        session.address,
                    true};
    if (request.user != session.user) {
        return refused(pending, "the connection's user is " + std::to_string(session.user));
    }
    if (request.newPassword.empty()) {
        return refused(pending, "the new password is empty");
    }
    const auto user = users_.byId(session.user);
    if (!user || user->passwordHash.empty()) {
        return refused(pending, "the user has no password");
    }
    pending.name = user->name;
    if (auto waiting = mustWait(pending)) {
        return std::move(*waiting);
    }
    return check(std::move(pending), {0, user->passwordHash, std::move(request.oldPassword),
                                      std::move(request.newPassword)});
}

std::optional<std::string> LoginService::refusesAccess(const std::string& address,
                                                       std::int32_t user) const
{
    if (policy_.trustUserIds || record_.vouchesFor(address, user, policy_.clock())) {
        return std::nullopt;
    }
    return "no login as user " + std::to_string(user) + " from " + address + " in the last " +
           std::to_string(policy_.validity.count()) + " h";
}

std::optional<HandlerOutcome> LoginService::mustWait(const Pending& pending) const
{
    const LoginTime now = policy_.clock();
    const std::chrono::seconds wait =
        std::max(byAddress_.waitLeft(pending.address, now), byName_.waitLeft(pending.name, now));
    if (wait.count() == 0) {
        return std::nullopt;
    }
    return refused(pending, "too many failures, retry in " + std::to_string(wait.count()) + " s");
}

void LoginService::failed(const Pending& pending)
{
    const LoginTime now = policy_.clock();
    byAddress_.failed(pending.address, now);
    byName_.failed(pending.name, now);
}

HandlerOutcome LoginService::check(Pending pending, PasswordHasher::Job job)
{
    job.ticket = ++tickets_;
    const std::uint64_t ticket = job.ticket;
    if (!hasher_.submit(std::move(job))) {
        return refused(pending, std::to_string(PasswordHasher::kDefaultQueueLimit) +
                                    " password checks already waiting");
    }
    std::string note = pending.attempt + ": checking the password";
    pending_.emplace(ticket, std::move(pending));
    return {Action::Await, nullptr, std::move(note), false};
}

HandlerOutcome LoginService::refused(const Pending& pending, const std::string& why) const
{
    SharedReply reply = pending.change ? shareMessage(ChangePasswordAnswer{kChangeRefused})
                                       : shareMessage(LoginAnswer::refused());
    return {Action::Reply, std::move(reply), pending.attempt + " refused: " + why, true};
}

std::vector<LoginService::Answered> LoginService::collect()
{
    std::vector<Answered> answers;
    for (const PasswordHasher::Result& result : hasher_.take()) {
        auto node = pending_.extract(result.ticket);
        if (node.empty()) {
            continue;
        }
        const Pending& pending = node.mapped();
        HandlerOutcome outcome;
        try {
            outcome = finish(pending, result);
        } catch (const std::exception& error) {
            outcome = refused(pending, std::string("store failure: ") + error.what());
        }
        answers.push_back({pending.connection, std::move(outcome)});
    }
    return answers;
}

HandlerOutcome LoginService::finish(const Pending& pending, const PasswordHasher::Result& result)
{
    if (result.matched) {
        return pending.change ? changed(pending, result.newHash) : loggedIn(pending);
    }
    failed(pending);
    if (!pending.change) {
        return refused(pending, "wrong password");
    }
    return {Action::Reply,
            shareMessage(ChangePasswordAnswer{ChangePasswordAnswer::kWrongPassword}),
            pending.attempt + " refused: wrong password", true};
}

HandlerOutcome LoginService::loggedIn(const Pending& pending)
{
    byAddress_.succeeded(pending.address);
    byName_.succeeded(pending.name);
    record_.loggedIn(pending.address, pending.user, policy_.clock());
    const LoginAnswer answer{pending.user, policy_.clientVersion, users_.mapsOf(pending.user)};
    return {Action::Reply, shareMessage(answer),
            pending.attempt + ": user " + std::to_string(pending.user) + " with " +
                std::to_string(answer.maps.size()) + " maps",
            true};
}

HandlerOutcome LoginService::changed(const Pending& pending, const std::string& newHash)
{
    if (newHash.empty()) {
        return refused(pending, "the new password could not be hashed");
    }
    byAddress_.succeeded(pending.address);
    byName_.succeeded(pending.name);
    users_.setPasswordHash(pending.name, newHash);
    return {Action::Reply, shareMessage(ChangePasswordAnswer{ChangePasswordAnswer::kChanged}),
            pending.attempt + ": changed", true};
}

} // namespace orbelan::server
