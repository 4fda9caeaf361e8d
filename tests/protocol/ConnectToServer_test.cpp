#include "protocol/ConnectToServer.h"

#include "LoopbackServer.h"
#include "protocol/Socket.h"

#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <utility>

using namespace orbelan;
using namespace orbelan::nettest;
using namespace std::chrono_literals;

namespace {

const QString kLoopback = QStringLiteral("127.0.0.1");

} // namespace

TEST(ConnectToServer, FailsAtTheErrorNotAtTheLimitAndTriesAgainLater)
{
    const quint16 port = unusedPort();
    Socket socket;
    const QDeadlineTimer limit(60s);
    EXPECT_FALSE(ConnectToServer(socket, kLoopback, port, 60s));
    EXPECT_FALSE(limit.hasExpired());
    EXPECT_EQ(socket.State(), kSocketError);

    // A failed socket is opened again rather than waited for.
    LoopbackServer server(port);
    EXPECT_TRUE(ConnectToServer(socket, kLoopback, port));
    EXPECT_EQ(socket.State(), kSocketConnected);
}

TEST(ConnectToServer, ASocketAlreadyUnderWayIsOnlyWaitedFor)
{
    LoopbackServer server;
    LoopbackServer other;
    Socket socket;

    // No time at all: the connection is started but not awaited, and is left running.
    EXPECT_FALSE(ConnectToServer(socket, kLoopback, server.port(), 0ms));
    EXPECT_EQ(socket.State(), kSocketConnecting);

    EXPECT_TRUE(ConnectToServer(socket, kLoopback, other.port()));
    EXPECT_TRUE(ConnectToServer(socket, kLoopback, other.port()));
    EXPECT_EQ(std::pair(socket.RemoteHost(), socket.RemotePort()), std::pair(kLoopback, server.port()));
    ASSERT_TRUE(server.waitForConnections(1));
    EXPECT_EQ(server.connectionCount(), 1);
    EXPECT_EQ(other.connectionCount(), 0);
}
