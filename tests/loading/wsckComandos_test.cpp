#include "AccessAnswer.h"
#include "LayerAccessLevels.h"
#include "MapDefinition.h"
#include "MapDefinitionRequest.h"
#include "PlayedServer.h"
#include "wsckComandos.h"

#include <QTest>

using namespace orbelan;

namespace {

const QString kNotUnderstood = QStringLiteral("No se entiende el comando\r\nError!");

using Dispatcher = PlayedServer;

// Every code the server sends but nobody handles yet, or that the protocol
// does not have, gets the same plain box; the stream goes on.
TEST_F(Dispatcher, AnUnknownCodeIsAnnouncedAndDropped)
{
    for (const std::int16_t code : {std::int16_t{100}, std::int16_t{112}, std::int16_t{-1}}) {
        deliver(message(static_cast<CommandCode>(code), QByteArray("\x01\x02\x03", 3)));
    }
    ASSERT_EQ(ui.messages().size(), 3u);
    for (const ShownMessage& box : ui.messages()) {
        EXPECT_EQ(box.text, kNotUnderstood);
        EXPECT_EQ(box.caption, "Proyecto Pelmarito");
        EXPECT_EQ(box.icon, MessageIcon::None);
        EXPECT_EQ(box.buttons, MessageButtons::OK);
    }
    EXPECT_EQ(viewer.PendingRequests(), 1);
    EXPECT_TRUE(abandoned.isEmpty());

    // The next message of the same arrival is handled as usual.
    deliver(bytesOf(message(static_cast<CommandCode>(100))) +
                bytesOf(messages::buildMessage(messages::AccessAnswer{1})),
            2);
    ASSERT_EQ(ui.messages().size(), 5u);
    EXPECT_EQ(ui.messages().back().text, "Acceso Denegado");
}

TEST_F(Dispatcher, Codes107And108AreConsumedWithoutAWord)
{
    deliver(message(CommandCode::NoAction107, QByteArray("\x05\x00", 2)));
    deliver(message(CommandCode::NoAction108));
    EXPECT_TRUE(ui.messages().empty());
    EXPECT_EQ(viewer.PendingRequests(), 1);
    EXPECT_TRUE(arrivedRequests().empty());
}

TEST_F(Dispatcher, RefusedAccessIsToldAndNothingMoreIsAsked)
{
    reply(messages::AccessAnswer{5});
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(ui.messages().front().text, "Acceso Denegado");
    EXPECT_EQ(ui.messages().front().caption, "Orbelan Viewer");
    EXPECT_EQ(ui.messages().front().icon, MessageIcon::Critical);
    EXPECT_EQ(viewer.PendingRequests(), 0);
    EXPECT_TRUE(arrivedRequests().empty());
    EXPECT_EQ(viewer.Layers().count(), 0);
}

TEST_F(Dispatcher, GrantedAccessAsksForTheMapOnce)
{
    viewer.setMapCode(42);
    reply(messages::AccessAnswer{0});
    std::vector<DWBUffer> sent = takeRequests(1);
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(codeOf(sent[0]), CommandCode::MapDefinitionRequest);
    EXPECT_EQ(messages::MapDefinitionRequest::decode(sent[0]).map, 42);
    EXPECT_TRUE(arrivedRequests().empty());
    // The access answer was counted off, the map request counted on.
    EXPECT_EQ(viewer.PendingRequests(), 1);
    EXPECT_TRUE(ui.messages().empty());
}

TEST_F(Dispatcher, AccessLevelsGoToTheirLayersAndTheMapIsShownWhole)
{
    viewer.Layers().AddLayer("Calles", 7, polylinelayer, viewer);
    viewer.Layers().AddLayer("Plazas", 9, pointlayer, viewer);
    viewer.mapExtent.Union(-71, -34, -70, -33);
    reply(messages::LayerAccessLevels{{{9, ALDraw}, {8, ALEditor}, {7, ALViewer}}});
    EXPECT_EQ(viewer.Layers().Find(7)->AccessLevel, ALViewer);
    EXPECT_EQ(viewer.Layers().Find(9)->AccessLevel, ALDraw);
    ASSERT_TRUE(viewer.viewport().viewReady());
    EXPECT_TRUE(viewer.viewport().viewBox().PointInBoundingBox(-70.5, -33.5));
}

TEST_F(Dispatcher, NoAccessLevelsStillShowTheMap)
{
    viewer.Layers().AddLayer("Calles", 7, polylinelayer, viewer);
    viewer.mapExtent.Union(-71, -34, -70, -33);
    reply(messages::LayerAccessLevels{});
    EXPECT_EQ(viewer.Layers().Find(7)->AccessLevel, ALNoAccess);
    EXPECT_TRUE(viewer.viewport().viewReady());
}

TEST_F(Dispatcher, AShortListOfLevelsKeepsThoseReadAndShowsNothing)
{
    viewer.Layers().AddLayer("Calles", 7, polylinelayer, viewer);
    viewer.Layers().AddLayer("Plazas", 9, pointlayer, viewer);
    viewer.mapExtent.Union(-71, -34, -70, -33);
    const DWBUffer levels = messages::buildMessage(messages::LayerAccessLevels{{{7, ALEditor}, {9, ALDraw}}});
    deliver(cutShort(levels, levels.TamanoBuffer() - 1));
    EXPECT_EQ(viewer.Layers().Find(7)->AccessLevel, ALEditor);
    EXPECT_EQ(viewer.Layers().Find(9)->AccessLevel, ALNoAccess);
    EXPECT_FALSE(viewer.viewport().viewReady());
    EXPECT_EQ(abandoned.size(), 1);
}

} // namespace
