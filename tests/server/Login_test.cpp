#include "login/LoginPolicy.h"
#include "login/LoginThrottle.h"
#include "login/PasswordHash.h"
#include "login/PasswordHasher.h"
#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/ChangePasswordAnswer.h"
#include "protocol/messages/ChangePasswordRequest.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "storage/UserStore.h"
#include "SampleStore.h"
#include "ServerThread.h"
#include "WireClient.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <string>

#include <poll.h>

using namespace orbelan;
using namespace orbelan::messages;
using namespace orbelan::server;
using namespace std::chrono_literals;

namespace {

std::size_t occurrences(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

// A server that lets access requests in only after a login, on the sample
// store where dibujante (user 1) has the password "lápiz" and visor (user 2)
// "ojo"; invitado has none. Its clock moves only when a test moves it.
class LoginTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        UserStore users(store.database());
        users.setPasswordHash("dibujante", PasswordHash::make("lápiz"));
        users.setPasswordHash("visor", PasswordHash::make("ojo"));
        LoginPolicy policy;
        policy.clientVersion = {1, 4, 7};
        policy.clock = [elapsed = elapsed_] { return LoginTime{} + elapsed->load() * 1s; };
        server = std::make_unique<ServerThread>(store.path(), ServingLimits{}, policy);
        port = server->start();
    }

    void advance(std::chrono::seconds by) { *elapsed_ += by.count(); }

    LoginAnswer login(const std::string& name, const std::string& password,
                      const char* from = "127.0.0.1")
    {
        WireClient client(port, QHostAddress(QString::fromLatin1(from)));
        return client.ask<LoginAnswer>(LoginRequest{name, password}).value_or(LoginAnswer::refused(-1));
    }

    bool accessGranted(WireClient& client, std::int32_t user)
    {
        const auto answer = client.ask<AccessAnswer>(AccessRequest{user, SampleStore::kMap});
        return answer && answer->granted();
    }

    SampleStore store;
    std::shared_ptr<std::atomic<long long>> elapsed_ = std::make_shared<std::atomic<long long>>(0);
    std::unique_ptr<ServerThread> server;
    quint16 port = 0;
};

TEST_F(LoginTest, ALoginGivesTheUserTheClientVersionAndTheMapsAndNothingElseGetsIn)
{
    const std::string stored = UserStore(store.database()).byName("dibujante")->passwordHash;
    EXPECT_TRUE(PasswordHash::isArgon2id(stored));
    EXPECT_EQ(stored.find("lápiz"), std::string::npos);
    EXPECT_TRUE(PasswordHash::matches(stored, "lápiz"));
    EXPECT_FALSE(PasswordHash::matches(stored, "lapiz"));

    const LoginAnswer expected{1, {1, 4, 7}, {{SampleStore::kMap, "Ñuñoa"}, {SampleStore::kOtherMap, "Otro"}}};
    EXPECT_EQ(login("dibujante", "lápiz"), expected);
    EXPECT_EQ(login("visor", "lápiz"), LoginAnswer::refused());
    EXPECT_EQ(login("nadie", "lápiz"), LoginAnswer::refused());
    EXPECT_EQ(login("invitado", ""), LoginAnswer::refused()) << "a user without a password";

    const std::string log = server->log();
    EXPECT_NE(log.find("login of \"visor\" from 127.0.0.1 refused: wrong password"), std::string::npos);
    EXPECT_NE(log.find("login of \"nadie\" from 127.0.0.1 refused: no such user"), std::string::npos);
    EXPECT_EQ(log.find("lápiz"), std::string::npos) << "passwords are never logged";
}

TEST_F(LoginTest, AccessNeedsALoginAsTheUserFromTheAddressWithinTheValidity)
{
    WireClient stranger(port);
    EXPECT_FALSE(accessGranted(stranger, 1));
    stranger.send(MapDefinitionRequest{SampleStore::kMap});
    EXPECT_TRUE(stranger.closedByServer()) << "no map data without access";
    EXPECT_NE(server->log().find("no login as user 1 from 127.0.0.1 in the last 12 h"), std::string::npos);

    ASSERT_EQ(login("dibujante", "lápiz", "127.0.0.2").userId, 1);
    WireClient elsewhere(port);
    EXPECT_FALSE(accessGranted(elsewhere, 1)) << "the login was from another address";
    WireClient otherUser(port, QHostAddress(QStringLiteral("127.0.0.2")));
    EXPECT_FALSE(accessGranted(otherUser, 2)) << "the address logged in as user 1";
    WireClient loggedIn(port, QHostAddress(QStringLiteral("127.0.0.2")));
    ASSERT_TRUE(accessGranted(loggedIn, 1));
    const auto map = loggedIn.ask<MapDefinition>(MapDefinitionRequest{SampleStore::kMap});
    ASSERT_TRUE(map);
    EXPECT_EQ(map->name, "Ñuñoa");

    advance(12h - 1s);
    WireClient late(port, QHostAddress(QStringLiteral("127.0.0.2")));
    EXPECT_TRUE(accessGranted(late, 1));
    advance(1s);
    WireClient expired(port, QHostAddress(QStringLiteral("127.0.0.2")));
    EXPECT_FALSE(accessGranted(expired, 1));
}

TEST_F(LoginTest, FailuresWaitLongerAndLongerByNameAndByAddressUntilASuccess)
{
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(login("visor", "mal").userId, 0);
    }
    EXPECT_EQ(occurrences(server->log(), "refused: wrong password"), 3u) << "three failures are free";
    EXPECT_EQ(login("visor", "ojo").userId, 0);
    EXPECT_NE(server->log().find("login of \"visor\" from 127.0.0.1 refused: too many failures, retry in 1 s"),
              std::string::npos);
    EXPECT_EQ(login("visor", "ojo", "127.0.0.3").userId, 0) << "the name waits from any address";

    advance(1s);
    EXPECT_EQ(login("visor", "mal").userId, 0);
    EXPECT_EQ(occurrences(server->log(), "refused: wrong password"), 4u);
    advance(1s);
    EXPECT_EQ(login("visor", "ojo").userId, 0) << "the fourth failure doubles the wait";
    EXPECT_EQ(occurrences(server->log(), "too many failures, retry in 1 s"), 3u);
    advance(1s);
    EXPECT_EQ(login("visor", "ojo").userId, 2);

    EXPECT_EQ(login("visor", "mal").userId, 0);
    EXPECT_EQ(login("visor", "ojo").userId, 2) << "the success cleared the count";

    for (const char* name : {"uno", "dos", "tres"}) {
        ASSERT_EQ(login(name, "x", "127.0.0.4").userId, 0);
    }
    EXPECT_EQ(login("dibujante", "lápiz", "127.0.0.4").userId, 0) << "the address waits whatever the name";
    EXPECT_EQ(login("dibujante", "lápiz").userId, 1);
}

TEST_F(LoginTest, APasswordChangeIsForTheConnectionsOwnUserAndTheOldPasswordStopsWorking)
{
    ASSERT_EQ(login("dibujante", "lápiz").userId, 1);
    WireClient viewer(port);
    ASSERT_TRUE(accessGranted(viewer, 1));
    const auto change = [&](std::int32_t user, const std::string& old, const std::string& fresh) {
        const auto answer = viewer.ask<ChangePasswordAnswer>(ChangePasswordRequest{user, old, fresh});
        return answer ? answer->result : -1;
    };
    EXPECT_EQ(change(2, "ojo", "nuevo"), 2) << "another user's password";
    EXPECT_EQ(change(1, "mal", "nuevo"), ChangePasswordAnswer::kWrongPassword);
    EXPECT_EQ(change(1, "lápiz", ""), 2) << "an empty password";
    EXPECT_EQ(change(1, "lápiz", "nuevo"), ChangePasswordAnswer::kChanged);

    EXPECT_EQ(login("dibujante", "lápiz").userId, 0);
    EXPECT_EQ(login("dibujante", "nuevo").userId, 1);
    EXPECT_EQ(login("visor", "ojo").userId, 2) << "the other user's password is as it was";
}

TEST(LoginThrottle, TheWaitStopsAtItsCapAndTheTableKeepsWithinItsSize)
{
    LoginThrottle throttle(2);
    const LoginTime start{};
    for (int i = 0; i < 40; ++i) {
        throttle.failed("a", start);
    }
    EXPECT_EQ(throttle.waitLeft("a", start), LoginThrottle::kLongestWait);
    throttle.failed("b", start + 1s);
    throttle.failed("c", start + 2s);
    EXPECT_EQ(throttle.size(), 2u);
    EXPECT_EQ(throttle.waitLeft("a", start), 0s) << "the key that failed longest ago went";
    throttle.failed("d", start + 3h);
    EXPECT_EQ(throttle.size(), 1u) << "quiet keys are forgotten";
}

TEST(PasswordHasher, AFullQueueRefusesAndEveryCheckComesBackThroughTheDescriptor)
{
    PasswordHasher hasher(1, 1);
    const std::string hash = PasswordHash::make("a");
    std::size_t accepted = 0;
    for (std::uint64_t ticket = 1; ticket <= 3; ++ticket) {
        accepted += hasher.submit({ticket, hash, ticket == 1 ? "a" : "b", std::string("c")}) ? 1 : 0;
    }
    EXPECT_LT(accepted, 3u) << "one thread and a queue of one take two checks at most";
    std::map<std::uint64_t, PasswordHasher::Result> results;
    pollfd ready{hasher.descriptor(), POLLIN, 0};
    while (results.size() < accepted && ::poll(&ready, 1, 10'000) == 1) {
        for (PasswordHasher::Result& result : hasher.take()) {
            results.emplace(result.ticket, std::move(result));
        }
    }
    ASSERT_EQ(results.size(), accepted);
    EXPECT_TRUE(results.at(1).matched);
    EXPECT_TRUE(PasswordHash::matches(results.at(1).newHash, "c"));
    for (const auto& [ticket, result] : results) {
        if (ticket != 1) {
            EXPECT_FALSE(result.matched);
            EXPECT_TRUE(result.newHash.empty()) << "no new hash without the right password";
        }
    }
}

} // namespace
