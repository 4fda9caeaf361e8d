#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "WireClient.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <tuple>

using namespace orbelan::messages;

namespace {

const QString kProgram = QStringLiteral(ORBELAN_SERVER_PROGRAM);

struct ProgramRun {
    int status;
    QString output;
};

// input: what the program reads on stdin.
ProgramRun runProgram(const QStringList& arguments, const QByteArray& input = {})
{
    QProcess process;
    process.start(kProgram, arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(120'000);
    return {process.exitCode(),
            QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError())};
}

// Starts serve on a free port and returns the port it logged.
quint16 startServing(QProcess& server, const QString& store)
{
    server.setProcessChannelMode(QProcess::MergedChannels);
    server.start(kProgram, {"serve", "--db", store, "--port", "0"});
    const QRegularExpression listening(QStringLiteral("listening on 127\\.0\\.0\\.1:(\\d+)"));
    QString log;
    while (server.waitForReadyRead(30'000)) {
        log += QString::fromUtf8(server.readAll());
        const auto match = listening.match(log);
        if (match.hasMatch()) {
            return static_cast<quint16>(match.captured(1).toUInt());
        }
    }
    return 0;
}

// demo, then user add and grant, then serve: the new user gets the granted
// level. What serve gives the demo's own users is seen through the viewer in
// the end-to-end load test.
TEST(ServerProgram, TheCommandsBuildAStoreThatServeGivesToWireClients)
{
    QTemporaryDir dir;
    const QString store = dir.filePath(QStringLiteral("demo.sqlite"));
    ASSERT_EQ(runProgram({"demo", "--db", store, "--offline", "--data", store}).status, 0);
    const ProgramRun added = runProgram({"user", "add", "--db", store, "--name", "maría"});
    EXPECT_EQ(added.status, 0);
    EXPECT_TRUE(added.output.contains(QStringLiteral("user 4 maría")));
    EXPECT_EQ(runProgram({"user", "grant", "--db", store, "--user", "4", "--map", "1", "--level", "2"}).status, 0);
    EXPECT_EQ(runProgram({"user", "grant", "--db", store, "--user", "4", "--map", "1", "--level", "9"}).status, 1);
    EXPECT_EQ(runProgram({"nonsense"}).status, 1);
    const QStringList passwd{"user", "passwd", "--db", store, "--name", "maría"};
    const ProgramRun unknown = runProgram({"user", "passwd", "--db", store, "--name", "nadie"}, "clave\n");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_TRUE(unknown.output.contains(QStringLiteral("no user named \"nadie\""))) << unknown.output.toStdString();
    const ProgramRun empty = runProgram(passwd, "\n");
    EXPECT_EQ(empty.status, 1);
    EXPECT_TRUE(empty.output.contains(QStringLiteral("the password is empty"))) << empty.output.toStdString();
    EXPECT_EQ(runProgram(passwd, "clave de maría\n").status, 0);
    for (const QStringList& wrong : {QStringList{"--client-version", "1.2"}, QStringList{"--login-valid-hours", "0"}}) {
        const ProgramRun refused = runProgram(QStringList{"serve", "--db", store, "--port", "0"} + wrong);
        EXPECT_EQ(refused.status, 1);
        EXPECT_TRUE(refused.output.contains(wrong[0])) << refused.output.toStdString();
    }
    QProcess server;
    const quint16 port = startServing(server, store);
    ASSERT_NE(port, 0);

    WireClient login(port);
    const auto loggedIn = login.ask<LoginAnswer>(LoginRequest{"maría", "clave de maría"});
    ASSERT_TRUE(loggedIn);
    EXPECT_EQ(loggedIn->userId, 4);
    WireClient refused(port);
    EXPECT_FALSE(refused.ask<AccessAnswer>(AccessRequest{1, 1})->granted()) << "admin has not logged in";
    WireClient granted(port);
    ASSERT_TRUE(granted.ask<AccessAnswer>(AccessRequest{4, 1})->granted());
    const auto grantedLevels = granted.ask<LayerAccessLevels>(LayerAccessLevelsRequest{4, {101, 102, 103}});
    ASSERT_TRUE(grantedLevels);
    for (const auto& entry : grantedLevels->levels)
        EXPECT_EQ(entry.level, 2);

    // SIGTERM: one line, exit 0, and the store's log folded back into the file.
    server.terminate();
    ASSERT_TRUE(server.waitForFinished(30'000));
    EXPECT_EQ(std::tuple(server.exitStatus(), server.exitCode()), std::tuple(QProcess::NormalExit, 0));
    EXPECT_TRUE(QString::fromUtf8(server.readAll()).contains(QStringLiteral("stopping on SIGTERM")));
    EXPECT_FALSE(QFileInfo::exists(store + QStringLiteral("-wal")));
}

} // namespace
