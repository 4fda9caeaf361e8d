#include "PlayedServer.h"

#include <QTest>

#include <span>

using namespace orbelan;

namespace {

constexpr qsizetype kAccessRequestSize = 18;

std::span<const std::uint8_t> spanOf(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

} // namespace

PlayedServer::PlayedServer()
    : handled(&viewer.connection(), &ServerConnection::dispatching),
      abandoned(&viewer.connection(), &ServerConnection::messageAbandoned)
{
    viewer.setUiServices(ui);
    viewer.resize(400, 300);
}

void PlayedServer::SetUp()
{
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    viewer.setURL(QStringLiteral("127.0.0.1"));
    viewer.setPort(server.serverPort());
    viewer.show();
    peer.reset(server.nextPendingConnection());
    ASSERT_TRUE(peer);
    ASSERT_TRUE(QTest::qWaitFor([this] { return peer->bytesAvailable() >= kAccessRequestSize; }));
    peer->read(kAccessRequestSize);
}

void PlayedServer::deliver(const QByteArray& bytes, int count)
{
    const qsizetype before = handled.size();
    peer->write(bytes);
    peer->flush();
    ASSERT_TRUE(QTest::qWaitFor([&] { return handled.size() >= before + count; }));
}

std::vector<DWBUffer> PlayedServer::takeRequests(std::size_t count)
{
    std::vector<DWBUffer> requests;
    const bool complete = QTest::qWaitFor([&] {
        const Arrival arrival = framer_.feed(spanOf(peer->readAll()));
        for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
            requests.emplace_back(arrival.messages[i]);
        }
        return requests.size() >= count;
    });
    EXPECT_TRUE(complete) << requests.size() << " of " << count << " requests came";
    return requests;
}

std::vector<DWBUffer> PlayedServer::arrivedRequests()
{
    QCoreApplication::processEvents();
    peer->waitForReadyRead(100);
    return takeRequests(0);
}

CommandCode PlayedServer::codeOf(DWBUffer& request)
{
    return messages::readHeader(request);
}

QByteArray PlayedServer::bytesOf(const DWBUffer& message)
{
    const std::span<const std::uint8_t> bytes = message.bytes();
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

DWBUffer PlayedServer::message(CommandCode code, const QByteArray& payload)
{
    DWBUffer built;
    built.CrearHeader();
    built.PutInteger(codeNumber(code));
    built.Add2Buffer(spanOf(payload));
    built.cerrarMensaje(0);
    return built;
}

DWBUffer PlayedServer::cutShort(const DWBUffer& message, std::int64_t length)
{
    DWBUffer cut(message.bytes().first(static_cast<std::size_t>(length)));
    cut.cerrarMensaje(0);
    return cut;
}
