#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/ElementBoundingBox.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "SessionHarness.h"

#include <cmath>
#include <tuple>

using namespace orbelan;

namespace {

using Dispatcher = SessionHarness;

// Every code the server sends but nobody handles yet, or that the protocol
// does not have, gets the same plain box; the next message is handled as usual.
TEST_F(Dispatcher, AnUnknownCodeIsAnnouncedAndDropped)
{
    for (const std::int16_t code : {std::int16_t{100}, std::int16_t{112}, std::int16_t{-1}}) {
        deliver(message(static_cast<CommandCode>(code), {1, 2, 3}));
    }
    ASSERT_EQ(ui.messages().size(), 3u);
    for (const ShownMessage& box : ui.messages()) {
        EXPECT_EQ(std::tuple(box.text, box.caption, box.icon, box.buttons),
                  std::tuple("No se entiende el comando\r\nError!", "Proyecto Pelmarito", MessageIcon::None,
                             MessageButtons::OK));
    }
    EXPECT_EQ(abandoned, 0);

    deliver(message(CommandCode::NoAction107, {5, 0}));
    deliver(message(CommandCode::NoAction108));
    EXPECT_EQ(ui.messages().size(), 3u);
    EXPECT_EQ(requests.pending, 0);
    EXPECT_TRUE(requests.sent.empty());
    EXPECT_EQ(events.redraws, 0);
}

TEST_F(Dispatcher, RefusedAccessIsToldAndNothingMoreIsAsked)
{
    requests.pending = 1;
    events.changeStatus(0, StatusList::RequestingMap, {});
    reply(messages::AccessAnswer{5});
    EXPECT_TRUE(requests.stopped);
    EXPECT_TRUE(events.status.empty());
    EXPECT_EQ(events.redraws, 0);
    ASSERT_EQ(ui.messages().size(), 1u);
    const ShownMessage& box = ui.messages().front();
    EXPECT_EQ(std::tuple(box.text, box.caption, box.icon),
              std::tuple("Acceso Denegado", "Orbelan Viewer", MessageIcon::Critical));
    EXPECT_EQ(requests.pending, 0);
    EXPECT_TRUE(requests.sent.empty());
}

TEST_F(Dispatcher, GrantedAccessAsksForTheMapOnce)
{
    document.MapCode = 42;
    requests.pending = 1;
    reply(messages::AccessAnswer{0});
    std::vector<DWBUffer> sent = requests.take();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(codeOf(sent[0]), CommandCode::MapDefinitionRequest);
    EXPECT_EQ(messages::MapDefinitionRequest::decode(sent[0]).map, 42);
    // The access answer was counted off, the map request counted on.
    EXPECT_EQ(requests.pending, 1);
    EXPECT_TRUE(ui.messages().empty());

    // Access granted again on a new connection: the map is already here.
    state.mapDefined = true;
    reply(messages::AccessAnswer{0});
    EXPECT_TRUE(requests.sent.empty());
}

// Levels are stored as they are read, ids the map does not have passed
// over; only a whole list shows the map.
TEST_F(Dispatcher, AccessLevelsGoToTheirLayersAndTheMapIsShownWhole)
{
    document.addLayer("Calles", 7, polylinelayer);
    document.addLayer("Plazas", 9, pointlayer);
    const DWBUffer levels =
        messages::buildMessage(messages::LayerAccessLevels{{{9, ALDraw}, {8, ALEditor}, {7, ALViewer}}});
    deliver(cutShort(levels, levels.TamanoBuffer() - 1));
    EXPECT_EQ(document.Layers().Find(9)->AccessLevel, ALDraw);
    EXPECT_EQ(document.Layers().Find(7)->AccessLevel, ALNoAccess);
    EXPECT_EQ(events.zooms, 0);
    EXPECT_EQ(abandoned, 1);

    deliver(levels);
    EXPECT_EQ(document.Layers().Find(7)->AccessLevel, ALViewer);
    EXPECT_EQ(events.zooms, 1);
    reply(messages::LayerAccessLevels{});
    EXPECT_EQ(events.zooms, 2);
}

// The box of an element is shown with a margin, only when its request asked
// for a zoom; an element the server does not have changes nothing.
TEST_F(Dispatcher, AnElementBoxIsShownWhenItsRequestAskedForAZoom)
{
    const messages::ElementBoundingBox box{3, 8, -70.5, -33.5, -70.25, -33.25};
    requests.pending = 4;
    reply(box);
    state.zoomToElementBox = true;
    reply(messages::ElementBoundingBox::none(3, 9));
    reply(messages::ElementBoundingBox{3, 8, -70.5, std::nan(""), -70.25, -33.25});
    EXPECT_TRUE(events.shown.empty());
    reply(box);
    ASSERT_EQ(events.shown.size(), 1u);
    const BoundingBox& shown = events.shown.front();
    EXPECT_EQ(std::tuple(shown.MinX, shown.MinY, shown.MaxX, shown.MaxY),
              std::tuple(-70.5 - 0.001, -33.5 - 0.001, -70.25 + 0.001, -33.25 + 0.001));
    EXPECT_EQ(requests.pending, 0);
}

} // namespace
