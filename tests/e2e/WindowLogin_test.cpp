// The window host's login: a refused --password opens the form, which logs
// in, offers the user's maps and opens the one chosen; the server and user
// are remembered, the password never.

#include "orbelan-viewer/HostOptions.h"
#include "orbelan-viewer/WindowLogin.h"
#include "LoopbackServer.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/MessageIO.h"
#include "ui/ScriptedUiServices.h"
#include "viewer/Viewer.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orbelan;

namespace {

Bytes bytesOf(const messages::LoginAnswer& answer)
{
    const DWBUffer message = messages::buildMessage(answer);
    return {message.bytes().begin(), message.bytes().end()};
}

TEST(WindowLogin, ARefusedPasswordOpensTheFormWhichOpensTheChosenMap)
{
    nettest::LoopbackServer server;
    server.answerEachRequest({bytesOf(messages::LoginAnswer::refused(0)),
                              bytesOf({7, {}, {{1, "Santiago"}, {3, "Viña del Mar"}}})});
    QTemporaryDir folder;
    const QString file = folder.filePath("viewer.ini");
    QSettings settings(file, QSettings::IniFormat);
    ScriptedUiServices ui;
    ui.queueDialog({"dlgLogin", {{"txtPassword", "secreto"}}, "OKButton"});
    ui.queueDialog({"dlgLogin", {{"cboMap", "Viña del Mar"}}, "OKButton"});
    Viewer viewer;
    viewer.setUserMode(false);
    HostOptions options;
    options.url = QStringLiteral("127.0.0.1");
    options.port = server.port();
    options.userName = QStringLiteral("visor");
    options.password = QStringLiteral("mala");

    ASSERT_TRUE(logInForWindow(viewer, options, ui, settings));
    EXPECT_EQ(ui.queuedDialogs(), 0u);
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(ui.messages().front().text, "Login failed: unknown user name or wrong password.");
    EXPECT_EQ(std::tuple(viewer.IDUser(), viewer.MapCode(), viewer.URL(), viewer.port()),
              std::tuple(7, 3, QString("127.0.0.1"), int(server.port())));
    settings.sync();
    QFile saved(file);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const QByteArray remembered = saved.readAll();
    EXPECT_TRUE(remembered.contains("User=visor")) << remembered.toStdString();
    EXPECT_FALSE(remembered.contains("secreto"));

    // Without scripts the form is cancelled, and the host gives up.
    EXPECT_FALSE(logInForWindow(viewer, HostOptions{}, ui, settings));
}

} // namespace
