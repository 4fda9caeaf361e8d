#include "protocol/Socket.h"

#include "LoopbackServer.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <vector>

using namespace orbelan;
using namespace orbelan::nettest;

namespace {

std::vector<int> reportedStates(const QSignalSpy& spy)
{
    std::vector<int> states;
    for (const QList<QVariant>& arguments : spy) {
        states.push_back(arguments.at(0).toInt());
    }
    return states;
}

// A socket aimed at a loopback server that accepts everything.
class SocketTest : public ::testing::Test {
protected:
    SocketTest()
    {
        socket.setRemoteHost(QStringLiteral("127.0.0.1"));
        socket.setRemotePort(server.port());
    }

    LoopbackServer server;
    Socket socket;
};

} // namespace

TEST_F(SocketTest, AConnectionReportsItsStateNumbersAndCloseEndsItAtOnce)
{
    QSignalSpy states(&socket, &Socket::StateChanged);
    EXPECT_EQ(socket.State(), kSocketClosed);

    socket.Connect();
    ASSERT_TRUE(waitUntil([&] { return socket.State() == kSocketConnected; }));
    socket.Close();
    EXPECT_EQ(socket.State(), kSocketClosed);
    EXPECT_EQ(reportedStates(states),
              (std::vector<int>{kSocketResolvingHost, kSocketConnecting, kSocketConnected, kSocketClosed}));
}

TEST_F(SocketTest, ARefusedConnectionReadsErrorUntilTheNextCloseOrConnect)
{
    socket.setRemotePort(unusedPort());
    socket.Connect();
    ASSERT_TRUE(waitUntil([&] { return socket.State() == kSocketError; }));
    socket.Close();
    EXPECT_EQ(socket.State(), kSocketClosed);

    socket.Connect();
    EXPECT_NE(socket.State(), kSocketError);
    ASSERT_TRUE(waitUntil([&] { return socket.State() == kSocketError; }));
    socket.Connect();
    EXPECT_NE(socket.State(), kSocketError);
}

TEST_F(SocketTest, SendingOnASocketThatIsNotOpenFails)
{
    QSignalSpy states(&socket, &Socket::StateChanged);
    socket.SendData(Bytes{1, 2, 3});
    EXPECT_EQ(socket.State(), kSocketError);
    EXPECT_EQ(reportedStates(states), std::vector<int>{kSocketError});
}

TEST_F(SocketTest, BytesTravelBothWaysAndGetDataTakesThemOut)
{
    socket.Connect();
    ASSERT_TRUE(waitUntil([&] { return socket.State() == kSocketConnected; }));

    // The stored host and port are for the next Connect only.
    socket.setRemotePort(unusedPort());
    socket.SendData(Bytes{0x4d, 0x00, 0xff});
    ASSERT_TRUE(server.waitForReceived(0, 3));
    EXPECT_EQ(server.received(0), (Bytes{0x4d, 0x00, 0xff}));
    EXPECT_EQ(socket.State(), kSocketConnected);

    QSignalSpy arrivals(&socket, &Socket::DataArrival);
    server.write(0, Bytes{9, 8, 7, 6});
    ASSERT_TRUE(arrivals.wait(static_cast<int>(std::chrono::milliseconds(kWaitLimit).count())));
    EXPECT_EQ(arrivals.at(0).at(0).toLongLong(), 4);
    EXPECT_EQ(socket.BytesAvailable(), 4);
    EXPECT_EQ(socket.GetData(), (Bytes{9, 8, 7, 6}));
    EXPECT_EQ(socket.BytesAvailable(), 0);
    EXPECT_TRUE(socket.GetData().empty());
}
