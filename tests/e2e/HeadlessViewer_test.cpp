// orbelan-viewer --headless as scripts use it: a real process, a real
// listener on 127.0.0.1, commands on its standard input, lines on its output.

#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int kWaitMilliseconds = 10000;

quint16 closedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    return probe.serverPort();
}

class HeadlessViewer : public ::testing::Test {
protected:
    void start(quint16 port)
    {
        viewer.setProgram(QStringLiteral(ORBELAN_VIEWER_PROGRAM));
        viewer.setArguments({"--headless", "--settings", settings.filePath("viewer.ini"), "--url",
                             "127.0.0.1", "--port", QString::number(port), "--user", "7", "--map", "3"});
        viewer.start();
        ASSERT_TRUE(viewer.waitForStarted(kWaitMilliseconds));
    }

    void command(const QByteArray& line) { viewer.write(line + '\n'); }

    // The next line the host prints, looking past the redraws that every
    // show, resize and completed reply brings.
    QString nextLine()
    {
        for (;;) {
            while (!viewer.canReadLine() && viewer.waitForReadyRead(kWaitMilliseconds)) {
            }
            const QString line = QString::fromUtf8(viewer.readLine()).trimmed();
            if (line != "event MapRedrawn") {
                return line;
            }
        }
    }

    void quit()
    {
        command("quit");
        ASSERT_TRUE(viewer.waitForFinished(kWaitMilliseconds));
        EXPECT_EQ(viewer.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(viewer.exitCode(), 0);
    }

    QTemporaryDir settings;
    QProcess viewer;
};

TEST_F(HeadlessViewer, ConnectsAsksForTheMapAndFollowsCommands)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    start(server.serverPort());
    ASSERT_TRUE(server.waitForNewConnection(kWaitMilliseconds));
    std::unique_ptr<QTcpSocket> peer(server.nextPendingConnection());
    QByteArray request;
    while (request.size() < 18 && peer->waitForReadyRead(kWaitMilliseconds)) {
        request += peer->readAll();
    }
    EXPECT_EQ(request, QByteArray("MIC \x12\0\0\0\x0A\0\x07\0\0\0\x03\0\0\0", 18));

    // The access answer (counted, and refusing) comes back in two pieces.
    peer->write(QByteArray("MIC \x0C\0\0", 7));
    peer->flush();
    peer->write(QByteArray("\0\x6E\0\x01\0", 5));
    peer->flush();
    EXPECT_EQ(nextLine(), "msgbox critical \"Orbelan Viewer\" \"Acceso Denegado\"");
    command("wait-idle 10");
    command("get PendingRequests");
    EXPECT_EQ(nextLine(), "property PendingRequests 0");

    command("About");
    EXPECT_EQ(nextLine(), "dialog dlgAbout \"About Orbelan Viewer\"");
    command("key 187");
    EXPECT_EQ(nextLine(), "event KeyDown 187 0");
    EXPECT_EQ(nextLine(), "event KeyPress 61");
    EXPECT_EQ(nextLine(), "event KeyUp 187 0");
    command("set MapCode nine");
    EXPECT_EQ(nextLine(), "error \"set MapCode: \\\"nine\\\" is not a valid value\"");
    command("set port 70000");
    EXPECT_EQ(nextLine(), "error \"port: 70000 is not a TCP port (0 to 65535)\"");
    command("get Nombre");
    EXPECT_EQ(nextLine(), "property Nombre \"\"");
    command("fly away");
    EXPECT_EQ(nextLine(), "error \"unknown command: fly\"");
    quit();
}

TEST_F(HeadlessViewer, ReportsAFailedConnectionAndKeepsRunning)
{
    start(closedPort());
    EXPECT_EQ(nextLine(),
              "msgbox critical \"Orbelan Viewer\" \"Error: Unable to connect to map server.\\r\\n\\r\\n"
              "Orbelan uses port 1001 to communicate with the map\\r\\nserver and now this port is blocked."
              "\\r\\nMay be the port is blocked by: \\r\\n\\t1.- Network Firewall or personal Firewall"
              "\\r\\n\\t2.- Network Proxy\\r\\n\\r\\nPlease contact your LAN Manager to enable the port 1001"
              "\\r\\nto communicate between your computer and Orbelan.\"");
    command("get MapCode");
    EXPECT_EQ(nextLine(), "property MapCode 3");
    quit();
}

TEST(HeadlessSnapshot, GivesUpAtOnceWhenTheMapCannotLoad)
{
    QTemporaryDir folder;
    QProcess viewer;
    viewer.start(QStringLiteral(ORBELAN_VIEWER_PROGRAM),
                 {"--snapshot", folder.filePath("map.png"), "--settings", folder.filePath("viewer.ini"), "--url",
                  "127.0.0.1", "--port", QString::number(closedPort())});
    ASSERT_TRUE(viewer.waitForFinished(kWaitMilliseconds));
    EXPECT_EQ(viewer.exitCode(), 1);
    EXPECT_TRUE(viewer.readAllStandardOutput().contains("error \"snapshot: the map cannot be loaded\""));
    EXPECT_FALSE(QFile::exists(folder.filePath("map.png")));
}

} // namespace
