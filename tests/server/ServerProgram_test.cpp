#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/CellFieldValues.h"
#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "WireClient.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace orbelan::messages;

namespace {

const QString kProgram = QStringLiteral(ORBELAN_SERVER_PROGRAM);

struct ProgramRun {
    int status;
    QString output;
};

ProgramRun runProgram(std::initializer_list<const char*> words)
{
    QStringList arguments;
    for (const char* word : words) {
        arguments << QString::fromUtf8(word);
    }
    QProcess process;
    process.start(kProgram, arguments);
    process.waitForFinished(120'000);
    return {process.exitCode(),
            QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError())};
}

// Starts serve on a free port and returns the port it logged.
quint16 startServing(QProcess& server, const QString& store)
{
    server.setProcessChannelMode(QProcess::MergedChannels);
    server.start(kProgram, {QStringLiteral("serve"), QStringLiteral("--db"), store,
                            QStringLiteral("--port"), QStringLiteral("0")});
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

// demo, then user add and grant, then serve: a wire client gets the whole map
// as user 1 and the granted level as the new user.
TEST(ServerProgram, TheCommandsBuildAStoreThatServeGivesToWireClients)
{
    QTemporaryDir dir;
    const QString store = dir.filePath(QStringLiteral("demo.sqlite"));
    const QByteArray storePath = store.toUtf8();
    const char* path = storePath.constData();
    ASSERT_EQ(runProgram({"demo", "--db", path, "--offline", "--data", path}).status, 0);
    const ProgramRun added = runProgram({"user", "add", "--db", path, "--name", "maría"});
    EXPECT_EQ(added.status, 0);
    EXPECT_TRUE(added.output.contains(QStringLiteral("user 4 maría")));
    EXPECT_EQ(runProgram({"user", "grant", "--db", path, "--user", "4", "--map", "1", "--level", "2"}).status, 0);
    EXPECT_EQ(runProgram({"user", "grant", "--db", path, "--user", "4", "--map", "1", "--level", "9"}).status, 1);
    EXPECT_EQ(runProgram({"nonsense"}).status, 1);
    QProcess server;
    const quint16 port = startServing(server, store);
    ASSERT_NE(port, 0);

    WireClient refused(port);
    EXPECT_FALSE(refused.ask<AccessAnswer>(AccessRequest{3, 1})->granted());
    WireClient granted(port);
    ASSERT_TRUE(granted.ask<AccessAnswer>(AccessRequest{4, 1})->granted());
    const auto grantedLevels = granted.ask<LayerAccessLevels>(LayerAccessLevelsRequest{4, {101, 102, 103}});
    ASSERT_TRUE(grantedLevels);
    for (const auto& entry : grantedLevels->levels)
        EXPECT_EQ(entry.level, 2);

    WireClient client(port);
    ASSERT_TRUE(client.ask<AccessAnswer>(AccessRequest{1, 1})->granted());
    const auto map = client.ask<MapDefinition>(MapDefinitionRequest{1});
    ASSERT_TRUE(map);
    EXPECT_EQ(map->name, "Santiago");
    LayerAccessLevelsRequest levelsRequest{1, {}};
    for (const auto& layer : map->layers)
        levelsRequest.layers.push_back(layer.id);
    const auto levels = client.ask<LayerAccessLevels>(levelsRequest);
    ASSERT_TRUE(levels);
    ASSERT_EQ(levels->levels.size(), map->layers.size());
    EXPECT_EQ(levels->levels[0].level, 3);

    const LayerRecord& streets = map->layers[1];
    const std::int32_t row = (streets.minCol + streets.maxCol) / 2;
    const std::int32_t column = (streets.minRow + streets.maxRow) / 2;
    const auto cell = client.ask<CellGeometry>(CellGeometryRequest{streets.id, row, column});
    ASSERT_TRUE(cell);
    EXPECT_GT(cell->elements.size(), 10u);
    const auto labels =
        client.ask<CellFieldValues>(CellFieldValuesRequest{streets.id, row, column, streets.labelField});
    ASSERT_TRUE(labels);
    EXPECT_EQ(labels->references.size(), cell->elements.size());
    server.kill();
    server.waitForFinished();
}

} // namespace
