#pragma once

#include "DWBUffer.h"
#include "MessageFramer.h"
#include "MessageIO.h"
#include "ScriptedUiServices.h"
#include "Viewer.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

// A shown Viewer whose map server is played by the test over loopback: the
// test writes the server's messages and reads the requests the control sends.
class PlayedServer : public ::testing::Test {
protected:
    PlayedServer();

    // Shows the control and takes its connection and its access request.
    void SetUp() override;

    // Writes the bytes and waits until the control has handled count messages.
    void deliver(const QByteArray& bytes, int count = 1);
    void deliver(const orbelan::DWBUffer& message) { deliver(bytesOf(message)); }
    template <typename Message>
    void reply(const Message& message)
    {
        deliver(orbelan::messages::buildMessage(message));
    }

    // The next count requests that arrive, payload read position after the code.
    std::vector<orbelan::DWBUffer> takeRequests(std::size_t count);
    // Whatever arrived by now, however little.
    std::vector<orbelan::DWBUffer> arrivedRequests();
    static orbelan::CommandCode codeOf(orbelan::DWBUffer& request);

    static QByteArray bytesOf(const orbelan::DWBUffer& message);
    // A message with the given code and payload, its length closed.
    static orbelan::DWBUffer message(orbelan::CommandCode code, const QByteArray& payload = {});
    // The first length bytes of a message, closed again as a whole message.
    static orbelan::DWBUffer cutShort(const orbelan::DWBUffer& message, std::int64_t length);

    orbelan::ScriptedUiServices ui;
    orbelan::Viewer viewer;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;
    QSignalSpy handled;
    QSignalSpy abandoned;

private:
    orbelan::MessageFramer framer_;
};
