#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/CommandCatalogue.h"
#include "protocol/messages/MessageIO.h"
#include "serving/RequestHandler.h"
#include "SampleStore.h"

#include <gtest/gtest.h>

#include <random>

using namespace orbelan;
using namespace orbelan::server;

namespace {

// Messages with every client code and payloads of random bytes and lengths:
// whatever they hold, the handler answers, drops or closes, and never lets
// an exception out; a well-formed request afterwards is still answered.
TEST(RequestHandler, RandomPayloadsNeverEscapeTheHandler)
{
    SampleStore store;
    RequestHandler handler(store.database());
    std::mt19937 random(20261122);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> length(0, 40);
    std::vector<std::int16_t> codes;
    for (const CommandInfo& info : commandCatalogue()) {
        codes.push_back(codeNumber(info.code));
    }
    codes.push_back(999);
    SessionState session;
    for (int round = 0; round < 4000; ++round) {
        if (round % 50 == 0) {
            session = SessionState{true, 1, SampleStore::kMap, {}};
        }
        DWBUffer message;
        message.CrearHeader();
        message.PutInteger(codes[static_cast<std::size_t>(round) % codes.size()]);
        for (int k = length(random); k > 0; --k) {
            message.PutByte(static_cast<std::uint8_t>(byte(random)));
        }
        message.cerrarMensaje(0);
        DWBUffer received(message.bytes());
        ASSERT_NO_THROW(handler.handle(session, received)) << "round " << round;
    }
    session = SessionState{true, 1, SampleStore::kMap, {}};
    DWBUffer request = messages::buildMessage(messages::CellGeometryRequest{SampleStore::kStreets, 5655, 10935});
    const HandlerOutcome outcome = handler.handle(session, request);
    ASSERT_EQ(outcome.action, HandlerOutcome::Action::Reply);
    DWBUffer reply(*outcome.reply);
    messages::readHeader(reply);
    EXPECT_EQ(messages::CellGeometry::decode(reply).elements.size(), 3u);
}

TEST(RequestHandler, AConnectionRemembersTheLevelsOfItsMapOnly)
{
    SampleStore store;
    RequestHandler handler(store.database());
    SessionState session{true, 1, SampleStore::kMap, {}};
    for (std::int32_t layer = 1000; layer < 1100; ++layer) {
        DWBUffer unknown = messages::buildMessage(messages::CellGeometryRequest{layer, 0, 0});
        handler.handle(session, unknown);
    }
    DWBUffer streets = messages::buildMessage(messages::CellGeometryRequest{SampleStore::kStreets, 5655, 10935});
    handler.handle(session, streets);
    ASSERT_TRUE(session.levels);
    EXPECT_EQ(session.levels->size(), 4u) << "the four layers of the map, however many ids were named";
}

// The same cached buffer goes to every request for a cell of the grid; a
// cell outside it is answered empty and leaves the cache as it was.
TEST(RequestHandler, SharesCachedCellRepliesAndCachesOnlyCellsOfTheGrid)
{
    SampleStore store;
    RequestHandler handler(store.database());
    SessionState session{true, 1, SampleStore::kMap, {}};
    const auto ask = [&](std::int32_t row, std::int32_t column) {
        DWBUffer request = messages::buildMessage(
            messages::CellGeometryRequest{SampleStore::kStreets, row, column});
        return handler.handle(session, request).reply;
    };
    const SharedReply first = ask(5655, 10935);
    EXPECT_EQ(ask(5655, 10935), first);
    const std::size_t cached = handler.cachedBytes();
    DWBUffer outside(*ask(5655, -10935));
    messages::readHeader(outside);
    EXPECT_TRUE(messages::CellGeometry::decode(outside).elements.empty());
    EXPECT_EQ(handler.cachedBytes(), cached);
}

} // namespace
