// The login control against a scripted server: the version rules, refused
// and foreign replies, no server, and replies built to hurt.

#include "login/login.h"
#include "LoopbackServer.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "protocol/messages/MessageIO.h"
#include "ui/ScriptedUiServices.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <optional>
#include <tuple>
#include <vector>

using namespace orbelan;
using nettest::LoopbackServer;
using nettest::waitUntil;

namespace {

struct Response {
    int user;
    int count;
    QStringList names;
    QList<int> codes;
    bool operator==(const Response&) const = default;
};

void PrintTo(const Response& response, std::ostream* out)
{
    *out << "(" << response.user << ", " << response.count << ", [" << response.names.join(',').toStdString()
         << "], " << response.codes.size() << " codes)";
}

Bytes bytesOf(const DWBUffer& message)
{
    return {message.bytes().begin(), message.bytes().end()};
}

Bytes answer(std::int32_t user, messages::LoginAnswer::Version version)
{
    const messages::LoginAnswer reply{user, version, {{1, "Santiago"}, {3, "Viña del Mar"}}};
    return bytesOf(messages::buildMessage(reply));
}

class LoginTest : public ::testing::Test {
protected:
    LoginTest()
    {
        control.setUiServices(ui);
        QObject::connect(&control, &login::LoginResponse, [this](int user, int count, const QStringList& names,
                                                                 const QList<int>& codes) {
            responses.push_back({user, count, names, codes});
        });
    }

    // One exchange: the request is checked, the server writes the reply in
    // the pieces given (and closes when asked), and the event is awaited.
    std::optional<Response> exchange(const std::vector<Bytes>& pieces, bool dropAfter = false)
    {
        const int connection = server.connectionCount();
        const std::size_t before = responses.size();
        control.Checklogin(QStringLiteral("127.0.0.1"), server.port(), QStringLiteral("admin"),
                           QStringLiteral("contraseña"));
        const Bytes request = bytesOf(messages::buildMessage(messages::LoginRequest{"admin", "contraseña"}));
        EXPECT_TRUE(server.waitForReceived(connection, request.size()));
        EXPECT_EQ(server.received(connection), request);
        for (const Bytes& piece : pieces) {
            server.write(connection, piece);
        }
        if (dropAfter) {
            server.drop(connection);
        }
        if (!waitUntil([&] { return responses.size() > before; })) {
            return std::nullopt;
        }
        EXPECT_FALSE(control.awaitingReply());
        return responses.back();
    }

    std::vector<std::tuple<QString, QString, MessageIcon>> boxes() const
    {
        std::vector<std::tuple<QString, QString, MessageIcon>> shown;
        for (const ShownMessage& box : ui.messages()) {
            shown.emplace_back(box.text, box.caption, box.icon);
        }
        return shown;
    }

    LoopbackServer server;
    ScriptedUiServices ui;
    login control;
    std::vector<Response> responses;
};

const Response kMaps{7, 2, {"Santiago", "Viña del Mar"}, {1, 3}};
const Response kForeign{-1, -1, {}, {}};

TEST_F(LoginTest, TheServersVersionDecidesBetweenMustUpdateShouldUpdateAndNothing)
{
    const auto mandatory = std::tuple(QStringLiteral("Imprescindible Instalar nueva version"),
                                      QStringLiteral("Orbelan Inc."), MessageIcon::Critical);
    const auto recommended = std::tuple(QStringLiteral("Recomendable Instalar nueva version"),
                                        QStringLiteral("Orbelan Inc."), MessageIcon::Critical);

    control.setClientVersion(QVersionNumber(1, 9, 9));
    EXPECT_EQ(exchange({answer(7, {2, 0, 0})}), (Response{-2, -1, {}, {}}));
    EXPECT_EQ(boxes(), std::vector{mandatory});

    control.setClientVersion(QVersionNumber(1, 4, 3));
    EXPECT_EQ(exchange({answer(7, {1, 4, 7})}), kMaps);
    EXPECT_EQ(boxes(), (std::vector{mandatory, recommended}));

    control.setClientVersion(QVersionNumber(1, 5, 0));
    EXPECT_EQ(exchange({answer(7, {1, 4, 3})}), kMaps);
    control.setClientVersion(QVersionNumber(1, 4, 3));
    EXPECT_EQ(exchange({answer(7, {1, 4, 3})}), kMaps);
    EXPECT_EQ(boxes().size(), 2u);
}

TEST_F(LoginTest, ARefusedLoginHasNoMapsAndAnotherCommandIsForeign)
{
    control.setClientVersion(QVersionNumber(0, 0, 1));
    EXPECT_EQ(exchange({bytesOf(messages::buildMessage(messages::LoginAnswer::refused(0)))}),
              (Response{0, 0, {}, {}}));
    const Bytes otherCommand = {'M', 'I', 'C', ' ', 16, 0, 0, 0, 110, 0, 7, 0, 0, 0, 1, 0};
    EXPECT_EQ(exchange({otherCommand}), kForeign);
    EXPECT_TRUE(ui.messages().empty());
}

TEST_F(LoginTest, AReplyInPiecesIsCollectedAndBytesPastItsLengthAreIgnored)
{
    const Bytes whole = answer(7, {0, 0, 0});
    const Bytes lastWithMore = join({slice(whole, 9, whole.size()), {'M', 'I', 'C'}});
    EXPECT_EQ(exchange({slice(whole, 0, 3), slice(whole, 3, 9), lastWithMore}), kMaps);
    EXPECT_EQ(responses.size(), 1u);
}

// Whatever the server sends, the control ends with one foreign answer and
// goes on: the next exchange works.
TEST_F(LoginTest, HostileRepliesEndAsForeignAnswers)
{
    const Bytes whole = answer(7, {0, 0, 0});
    Bytes hugeCount = whole;
    hugeCount[20] = 0xFF;
    hugeCount[21] = 0x7F;
    EXPECT_EQ(exchange({{'H', 'T', 'T', 'P', '/', '1'}}), kForeign);
    EXPECT_EQ(exchange({{'M', 'I', 'C', ' ', 9, 0, 0, 0, 112}}), kForeign);
    EXPECT_EQ(exchange({{'M', 'I', 'C', ' ', 0xFF, 0xFF, 0xFF, 0x7F}}), kForeign);
    EXPECT_EQ(exchange({hugeCount}), kForeign);
    EXPECT_EQ(exchange({slice(whole, 0, 15)}, true), kForeign);
    EXPECT_EQ(exchange({}, true), kForeign);
    EXPECT_EQ(exchange({whole}), kMaps);
    EXPECT_TRUE(ui.messages().empty());
}

TEST_F(LoginTest, NoServerIsToldWithTheViewersMessageAndRaisesNoEvent)
{
    control.Checklogin(QStringLiteral("127.0.0.1"), nettest::unusedPort(), QStringLiteral("admin"),
                       QStringLiteral("admin"));
    control.Checklogin(QStringLiteral("127.0.0.1"), 70000, QStringLiteral("admin"), QStringLiteral("admin"));
    ASSERT_EQ(ui.messages().size(), 2u);
    for (const ShownMessage& box : ui.messages()) {
        EXPECT_TRUE(box.text.startsWith("Error: Unable to connect to map server.\r\n"));
        EXPECT_EQ(std::tuple(box.caption, box.icon), std::tuple("Orbelan Viewer", MessageIcon::Critical));
    }
    EXPECT_FALSE(control.awaitingReply());
    QCoreApplication::processEvents();
    EXPECT_TRUE(responses.empty());
}

} // namespace
