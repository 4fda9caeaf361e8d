#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "SampleStore.h"
#include "ServerThread.h"
#include "WireClient.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <memory>
#include <vector>

#include <sys/resource.h>

using namespace orbelan;
using namespace orbelan::messages;
using orbelan::server::ServingLimits;

namespace {

const CellGeometryRequest kBusyCell{SampleStore::kStreets, 5655, 10935};

QHostAddress loopback(int last)
{
    return QHostAddress(QStringLiteral("127.0.0.%1").arg(last));
}

bool admit(WireClient& client)
{
    const auto answer = client.ask<AccessAnswer>(AccessRequest{1, SampleStore::kMap});
    return answer && answer->granted();
}

std::vector<std::uint8_t> requests(int count)
{
    const auto one = buildMessage(kBusyCell).buffer();
    std::vector<std::uint8_t> burst;
    for (int i = 0; i < count; ++i) {
        burst.insert(burst.end(), one.begin(), one.end());
    }
    return burst;
}

template <typename Log>
bool logShows(Log log, const std::string& text)
{
    const QDeadlineTimer timer(10'000);
    while (!timer.hasExpired()) {
        if (log().find(text) != std::string::npos) {
            return true;
        }
        QThread::msleep(20);
    }
    return false;
}

TEST(ServerLimits, IdleAndUnfinishedConnectionsCloseWhileWorkingOnesStay)
{
    SampleStore store;
    ServingLimits limits;
    limits.idleTimeout = std::chrono::seconds(2);
    limits.requestTimeout = std::chrono::seconds(1);
    ServerThread server(store.path(), limits);
    const quint16 port = server.start();

    WireClient idle(port);
    WireClient slow(port);
    slow.sendBytes({'M', 'I', 'C', ' ', 30, 0});
    WireClient working(port);
    ASSERT_TRUE(admit(working));
    EXPECT_TRUE(slow.closedByServer());
    for (int i = 0; i < 6; ++i) {
        ASSERT_TRUE(working.ask<CellGeometry>(kBusyCell)) << "a client that keeps asking stays";
        QThread::msleep(500);
    }
    EXPECT_TRUE(idle.closedByServer());
    const std::string log = server.log();
    EXPECT_NE(log.find("a request unfinished after 1 s; closing"), std::string::npos);
    EXPECT_NE(log.find("nothing sent or taken for 2 s; closing"), std::string::npos);
}

TEST(ServerLimits, ConnectionsBeyondTheCapsAreRefusedUntilOneCloses)
{
    SampleStore store;
    ServingLimits limits;
    limits.connections = 3;
    limits.connectionsPerAddress = 2;
    ServerThread server(store.path(), limits);
    const quint16 port = server.start();

    std::vector<std::unique_ptr<WireClient>> clients;
    for (const int address : {2, 2, 2, 3, 4}) {
        clients.push_back(std::make_unique<WireClient>(port, loopback(address)));
    }
    EXPECT_TRUE(admit(*clients[0]));
    EXPECT_TRUE(admit(*clients[1]));
    EXPECT_TRUE(clients[2]->closedByServer()) << "a third from one address";
    EXPECT_TRUE(admit(*clients[3]));
    EXPECT_TRUE(clients[4]->closedByServer()) << "a fourth in all";
    EXPECT_NE(server.log().find("the address has 2 connections open, its cap"), std::string::npos);
    EXPECT_NE(server.log().find("the server has 3 connections open, its cap"), std::string::npos);

    clients[0].reset();
    ASSERT_TRUE(logShows([&] { return server.log(); }, "connection 1: closed"));
    WireClient later(port, loopback(2));
    EXPECT_TRUE(admit(later));
}

// Both clients ask without reading; the one with the larger backlog goes
// when the replies waiting overflow the budget, the other gets every reply.
TEST(ServerLimits, TheLargestBacklogIsClosedWhenUnsentRepliesOverflowTheBudget)
{
    SampleStore store;
    ServingLimits limits;
    limits.unsentBudget = 1024 * 1024;
    ServerThread server(store.path(), limits);
    const quint16 port = server.start();

    WireClient hog(port, loopback(1), 4096);
    WireClient modest(port, loopback(1), 4096);
    ASSERT_TRUE(admit(hog) && admit(modest));
    hog.sendBytes(requests(60'000));
    constexpr int kModest = 3'000;
    modest.sendBytes(requests(kModest));
    ASSERT_TRUE(logShows([&] { return server.log(); }, "bytes of replies unsent"));
    EXPECT_EQ(server.log().find("connection 2: closed"), std::string::npos);
    for (int i = 0; i < kModest; ++i) {
        ASSERT_TRUE(modest.reply<CellGeometry>()) << "reply " << i;
    }
    EXPECT_TRUE(hog.closedByServer());
}

// The server runs with a few descriptors; clients beyond them wait.
TEST(ServerLimits, OutOfDescriptorsTheServerWaitsWithoutSpinningAndAcceptsAgain)
{
    SampleStore store;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setChildProcessModifier([] {
        const rlimit few{48, 48};
        setrlimit(RLIMIT_NOFILE, &few);
    });
    process.start(QStringLiteral(ORBELAN_SERVER_PROGRAM),
                  // The clients here ask for access without logging in.
                  {"serve", "--db", store.path(), "--port", "0", "--trust-user-ids"});
    QString log;
    const QRegularExpression listening(QStringLiteral("listening on 127\\.0\\.0\\.1:(\\d+)"));
    while (!listening.match(log).hasMatch() && process.waitForReadyRead(30'000)) {
        log += QString::fromUtf8(process.readAll());
    }
    const auto port = static_cast<quint16>(listening.match(log).captured(1).toUInt());
    ASSERT_NE(port, 0);

    std::vector<std::unique_ptr<WireClient>> crowd;
    for (int i = 0; i < 80; ++i) {
        crowd.push_back(std::make_unique<WireClient>(port, loopback(2 + i % 2)));
    }
    const auto busySeconds = [&] {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(process.processId()));
        stat.open(QIODevice::ReadOnly);
        const QStringList fields = QString::fromLatin1(stat.readAll()).section(')', 1).split(' ');
        return (fields[12].toDouble() + fields[13].toDouble()) / static_cast<double>(sysconf(_SC_CLK_TCK));
    };
    QThread::msleep(500);
    const double before = busySeconds();
    QThread::msleep(2000);
    EXPECT_LT(busySeconds() - before, 0.5) << "the server spins while it cannot accept";

    crowd.clear();
    WireClient later(port);
    EXPECT_TRUE(admit(later));
    process.terminate();
    process.waitForFinished(30'000);
    log += QString::fromUtf8(process.readAll());
    EXPECT_EQ(log.count(QStringLiteral("out of file descriptors")), 1);
    EXPECT_TRUE(log.contains(QStringLiteral("descriptors are free again")));
}

} // namespace
