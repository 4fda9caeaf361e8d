#include "protocol/RequestSender.h"
#include "protocol/ServerConnection.h"

#include "Bytes.h"
#include "LoopbackServer.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace orbelan;
using namespace orbelan::nettest;
using Payload = std::function<void(DWBUffer&)>;

namespace {

// A message as the server writes it: laid out as a request is.
Bytes serverMessage(CommandCode code, const Payload& payload = {})
{
    return composeRequest(code, payload).buffer();
}

Payload longs(std::initializer_list<std::int32_t> values)
{
    return [values](DWBUffer& message) {
        for (const std::int32_t value : values) {
            message.PutLong(value);
        }
    };
}

Payload strings(std::initializer_list<const char*> values)
{
    return [values = std::vector<std::string>(values.begin(), values.end())](DWBUffer& message) {
        for (const std::string& value : values) {
            message.PutString(value);
        }
    };
}

} // namespace

class ServerConnectionTest : public ::testing::Test {
protected:
    ServerConnectionTest()
    {
        connection.socket().setRemoteHost(QStringLiteral("127.0.0.1"));
        connection.socket().setRemotePort(server.port());
    }

    void connectBothEnds()
    {
        ASSERT_TRUE(connection.connectToServer());
        ASSERT_TRUE(server.waitForConnections(1));
    }

    // Keeps every message handed out and the read position it came with.
    void recordMessages()
    {
        connection.setMessageHandler([this](DWBUffer& message) {
            handled.push_back(message.buffer());
            readPositions.push_back(message.readPosition());
        });
    }

    bool waitForArrivals(std::size_t count)
    {
        return waitUntil([&] { return static_cast<std::size_t>(arrivals.size()) >= count; });
    }

    LoopbackServer server;
    ServerConnection connection;
    QSignalSpy arrivals{&connection, &ServerConnection::dataArriving};
    QSignalSpy repliesIn{&connection, &ServerConnection::allRepliesIn};
    std::vector<Bytes> handled;
    std::vector<std::int64_t> readPositions;
};

TEST_F(ServerConnectionTest, RequestsLeaveByteExactAndOnlyCountedOnesAwaitAReply)
{
    connection.sendRequest(CommandCode::AccessRequest, longs({7, 3}));
    EXPECT_EQ(connection.pendingRequests(), 1);
    connection.sendRequest(CommandCode::Login, strings({"ana", "x"}));
    EXPECT_EQ(connection.pendingRequests(), 1);

    const Bytes access = {'M', 'I', 'C', ' ', 18, 0, 0, 0, 10, 0, 7, 0, 0, 0, 3, 0, 0, 0};
    const Bytes login = {'M', 'I', 'C', ' ', 18, 0, 0, 0, 12, 0, 3, 0, 'a', 'n', 'a', 1, 0, 'x'};
    ASSERT_TRUE(server.waitForReceived(0, access.size() + login.size()));
    EXPECT_EQ(server.received(0), join({access, login}));
    EXPECT_EQ(server.connectionCount(), 1);
}

TEST_F(ServerConnectionTest, ASendOnAClosedConnectionReopensItToTheLastHostAndPortFirst)
{
    const Bytes request = {'M', 'I', 'C', ' ', 14, 0, 0, 0, 1, 0, 5, 0, 0, 0};
    const auto askForMap = [&] { connection.sendRequest(CommandCode::MapDefinitionRequest, longs({5})); };

    askForMap();
    ASSERT_TRUE(server.waitForReceived(0, request.size()));
    connection.socket().Close();
    askForMap();
    ASSERT_TRUE(server.waitForReceived(1, request.size()));
    server.drop(1);
    ASSERT_TRUE(waitUntil([&] { return connection.socket().State() == kSocketClosed; }));
    // The reply awaited was lost with the connection.
    EXPECT_EQ(connection.pendingRequests(), 0);
    askForMap();
    ASSERT_TRUE(server.waitForReceived(2, request.size()));

    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(server.received(i), request) << "connection " << i;
    }
}

TEST_F(ServerConnectionTest, AFailedReconnectionIsSaidOnceAndTheNextTurnTriesAgain)
{
    const quint16 port = unusedPort();
    connection.socket().setRemotePort(port);
    QSignalSpy failures(&connection, &ServerConnection::connectionFailed);

    // Nothing listens: the first send tries, the others of the same turn of
    // the event loop are dropped with it, and none is awaited.
    for (std::int32_t element = 1; element <= 3; ++element) {
        connection.sendRequest(CommandCode::ElementBoundingBoxRequest, longs({2, element}));
    }
    EXPECT_EQ(failures.size(), 1);
    EXPECT_EQ(connection.pendingRequests(), 0);
    QCoreApplication::processEvents();

    // A connection opened again is introduced before the send's own bytes.
    LoopbackServer late(port);
    QObject::connect(&connection, &ServerConnection::reconnected,
                     [&] { connection.sendRequest(CommandCode::AccessRequest, longs({7, 3})); });
    connection.sendRequest(CommandCode::ElementBoundingBoxRequest, longs({2, 9}));
    ASSERT_TRUE(late.waitForReceived(0, 36));
    EXPECT_EQ(late.received(0), (Bytes{'M', 'I', 'C', ' ', 18, 0, 0, 0, 10, 0, 7, 0, 0, 0, 3, 0, 0, 0,
                                       'M', 'I', 'C', ' ', 18, 0, 0, 0, 15, 0, 2, 0, 0, 0, 9, 0, 0, 0}));
    EXPECT_EQ(connection.pendingRequests(), 2);
    EXPECT_EQ(failures.size(), 1);
}

TEST_F(ServerConnectionTest, MessagesWrittenInOddChunksReachTheHandlerWholeAndInOrder)
{
    recordMessages();
    QSignalSpy further(&connection, &ServerConnection::furtherChunk);
    QSignalSpy idle(&connection, &ServerConnection::receiveIdle);
    QSignalSpy dispatching(&connection, &ServerConnection::dispatching);
    connectBothEnds();

    const Bytes a = serverMessage(CommandCode::ElementChangeNotification, longs({1, 2}));
    const Bytes b = serverMessage(CommandCode::NoAction107);
    const Bytes c = serverMessage(CommandCode::SaveMapAnswer, strings({"a longer third message"}));
    // A split header; its rest with a whole message and a split signature; the
    // rest of that header and a little more; the end. The last two continue a
    // message already in progress.
    const std::vector<Bytes> writes = {slice(a, 0, 5), join({slice(a, 5, a.size()), b, slice(c, 0, 3)}),
                                       slice(c, 3, 12), slice(c, 12, c.size())};
    for (std::size_t i = 0; i < writes.size(); ++i) {
        server.write(0, writes[i]);
        ASSERT_TRUE(waitForArrivals(i + 1));
        EXPECT_EQ(connection.receiving(), i + 1 < writes.size()) << "after write " << i;
    }

    EXPECT_EQ(handled, (std::vector<Bytes>{a, b, c}));
    EXPECT_EQ(readPositions, (std::vector<std::int64_t>{1, 1, 1}));
    EXPECT_EQ(dispatching.size(), 3);
    EXPECT_EQ(further.size(), 2);
    EXPECT_EQ(idle.size(), 1);
    // Nothing is awaited, so every arrival that completed messages ends with
    // one "all replies in", however many it completed.
    EXPECT_EQ(repliesIn.size(), 2);
}

TEST_F(ServerConnectionTest, TheLastAwaitedReplyBringsAllRepliesInOnceForItsArrival)
{
    for (std::int32_t i = 0; i < 3; ++i) {
        connection.sendRequest(CommandCode::CellGeometryRequest, longs({1, i, 0}));
    }
    ASSERT_TRUE(server.waitForReceived(0, 3 * 22));
    EXPECT_FALSE(connection.idle());

    // Only a counted reply counts off: not a notification, nor a request's code.
    const Bytes reply = serverMessage(CommandCode::CellGeometry, longs({1}));
    server.write(0, join({reply, serverMessage(CommandCode::NoAction107),
                          serverMessage(CommandCode::CellGeometryRequest)}));
    ASSERT_TRUE(waitForArrivals(1));
    EXPECT_EQ(connection.pendingRequests(), 2);
    EXPECT_EQ(repliesIn.size(), 0);

    server.write(0, join({reply, reply, serverMessage(CommandCode::ElementChangeNotification)}));
    ASSERT_TRUE(waitForArrivals(2));
    EXPECT_EQ(connection.pendingRequests(), 0);
    EXPECT_EQ(repliesIn.size(), 1);
    EXPECT_TRUE(connection.idle());
}

TEST_F(ServerConnectionTest, AMessageShorterThanItsFieldsIsAbandonedAndTheNextOneStillHandled)
{
    std::vector<std::int32_t> values;
    connection.setMessageHandler([&](DWBUffer& message) {
        message.GetLong();
        message.GetLong();
        message.GetInteger();
        values.push_back(message.GetLong());
        if (values.back() == 13) {
            throw std::runtime_error("thirteen");
        }
    });
    QSignalSpy abandoned(&connection, &ServerConnection::messageAbandoned);
    connectBothEnds();

    // Whatever else escapes a handler ends its message only, and is told too.
    server.write(0, join({serverMessage(CommandCode::FieldStatistics),
                          serverMessage(CommandCode::FieldStatistics, longs({13})),
                          serverMessage(CommandCode::FieldStatistics, longs({42}))}));
    ASSERT_TRUE(waitForArrivals(1));
    EXPECT_EQ(values, (std::vector<std::int32_t>{13, 42}));
    ASSERT_EQ(abandoned.size(), 2);
    EXPECT_TRUE(abandoned.at(0).at(0).toString().contains(QStringLiteral("command 106")));
    EXPECT_EQ(abandoned.at(1).at(0).toString(), QStringLiteral("thirteen"));
}

TEST_F(ServerConnectionTest, OrderIsKeptWhenAHandlerReconnectsWhileMoreDataArrives)
{
    const Bytes mapDefinition = serverMessage(CommandCode::MapDefinition, longs({5}));
    const Bytes notification = serverMessage(CommandCode::ElementChangeNotification, longs({1}));
    std::vector<std::int16_t> order;
    bool running = false;
    bool overlapped = false;
    int nestedArrivals = 0;
    int repliesInWhileRunning = 0;
    QObject::connect(&connection, &ServerConnection::dataArriving, [&] { nestedArrivals += running ? 1 : 0; });
    QObject::connect(&connection, &ServerConnection::allRepliesIn, [&] { repliesInWhileRunning += running ? 1 : 0; });

    // The server answers the access request and hangs up. The answer's handler
    // asks for the map, which re-opens the connection in a nested event loop,
    // and stays inside until the next replies have arrived on the new one.
    const auto askForMapAndStay = [&] {
        ASSERT_TRUE(waitUntil([&] { return connection.socket().State() == kSocketClosed; }));
        connection.sendRequest(CommandCode::MapDefinitionRequest, longs({5}));
        ASSERT_TRUE(server.waitForReceived(1, 14));
        server.write(1, join({mapDefinition, notification}));
        ASSERT_TRUE(waitUntil([&] { return nestedArrivals > 0 && !connection.receiving(); }));
    };
    connection.setMessageHandler([&](DWBUffer& message) {
        overlapped = overlapped || running;
        const QScopedValueRollback<bool> inside(running, true);
        const std::int16_t code = message.commandCode().value_or(0);
        order.push_back(code);
        if (isCounted(static_cast<CommandCode>(code))) {
            connection.replyHandled();
        }
        if (code == codeNumber(CommandCode::AccessAnswer)) {
            askForMapAndStay();
        }
    });

    connection.sendRequest(CommandCode::AccessRequest, longs({7, 3}));
    ASSERT_TRUE(server.waitForReceived(0, 18));
    server.write(0, serverMessage(CommandCode::AccessAnswer, [](DWBUffer& message) { message.PutInteger(0); }));
    server.drop(0);
    ASSERT_TRUE(waitUntil([&] { return order.size() == 3; }));

    EXPECT_EQ(order, (std::vector<std::int16_t>{codeNumber(CommandCode::AccessAnswer),
                                                codeNumber(CommandCode::MapDefinition),
                                                codeNumber(CommandCode::ElementChangeNotification)}));
    EXPECT_FALSE(overlapped);
    EXPECT_GT(nestedArrivals, 0);
    EXPECT_EQ(repliesInWhileRunning, 0);
    EXPECT_EQ(repliesIn.size(), 1);
    EXPECT_EQ(connection.pendingRequests(), 0);
}

TEST_F(ServerConnectionTest, APartOfAMessageCutOffByALostConnectionDoesNotPrefixTheNextOne)
{
    recordMessages();
    connectBothEnds();
    const Bytes cut = serverMessage(CommandCode::ResultTable, strings({"never finished"}));
    server.write(0, slice(cut, 0, 12));
    server.drop(0);
    ASSERT_TRUE(waitUntil([&] { return connection.socket().State() == kSocketClosed; }));
    EXPECT_TRUE(connection.receiving());

    connection.sendRequest(CommandCode::Login);
    ASSERT_TRUE(server.waitForConnections(2));
    const Bytes answer = serverMessage(CommandCode::LoginAnswer, [](DWBUffer& m) { m.PutInteger(1); });
    server.write(1, answer);
    ASSERT_TRUE(waitUntil([&] { return !handled.empty(); }));
    EXPECT_EQ(handled, std::vector<Bytes>{answer});
    EXPECT_FALSE(connection.receiving());
}

TEST_F(ServerConnectionTest, AHandlerMayReplaceItselfWhileItRuns)
{
    // Long enough to live on the heap: a handler destroyed while running shows
    // under AddressSanitizer when it touches what it captured.
    const std::string label(64, 'h');
    connection.setMessageHandler([this, label](DWBUffer&) {
        connection.setMessageHandler({});
        handled.emplace_back(label.begin(), label.end());
    });
    connection.sendRequest(CommandCode::MapDefinitionRequest, longs({5}));
    connection.sendRequest(CommandCode::MapDefinitionRequest, longs({6}));
    ASSERT_TRUE(server.waitForReceived(0, 28));

    // The first reply goes to the replacing handler, the second to the
    // counting default that an empty handler brings back.
    const Bytes reply = serverMessage(CommandCode::MapDefinition);
    server.write(0, join({reply, reply}));
    ASSERT_TRUE(waitUntil([&] { return connection.pendingRequests() == 1; }));
    EXPECT_EQ(handled, std::vector<Bytes>{Bytes(label.begin(), label.end())});
}

TEST_F(ServerConnectionTest, ClosingDeliversTheLastRequestAndEndsClosed)
{
    connection.sendRequest(CommandCode::SaveMap, strings({"map"}));
    connection.closeAndWait();
    EXPECT_EQ(connection.socket().State(), kSocketClosed);
    EXPECT_TRUE(server.waitForReceived(0, 15));

    connection.socket().setRemotePort(unusedPort());
    EXPECT_FALSE(connection.connectToServer());
    connection.closeAndWait();
    EXPECT_EQ(connection.socket().State(), kSocketClosed);
}
