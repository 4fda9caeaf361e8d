#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/CellFieldValues.h"
#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/messages/ElementBoundingBox.h"
#include "protocol/messages/ElementBoundingBoxRequest.h"
#include "protocol/messages/ElementChange.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "protocol/messages/MultipleAttributeUpdate.h"
#include "SampleStore.h"
#include "ServerThread.h"
#include "WireClient.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

using namespace orbelan;
using namespace orbelan::messages;

namespace {

constexpr double kCentimetreInDegrees = 0.01 / 111'000.0;

// The sample store's busy cell, around -70.65 / -33.45.
CellGeometryRequest busyCell(std::int32_t layer)
{
    return {layer, 5655, 10935};
}

class MapServerTest : public ::testing::Test {
protected:
    void SetUp() override { port = server->start(); }

    // A client that has passed the access request as the user.
    std::unique_ptr<WireClient> admitted(std::int32_t user)
    {
        auto client = std::make_unique<WireClient>(port);
        const auto answer = client->ask<AccessAnswer>(AccessRequest{user, SampleStore::kMap});
        EXPECT_TRUE(answer && answer->granted());
        return client;
    }

    SampleStore store;
    std::unique_ptr<ServerThread> server = std::make_unique<ServerThread>(store.path());
    quint16 port = 0;
};

TEST_F(MapServerTest, StartupExchangeGivesTheMapAndTheConnectionsOwnLevels)
{
    auto client = admitted(2);
    const auto map = client->ask<MapDefinition>(MapDefinitionRequest{SampleStore::kMap});
    ASSERT_TRUE(map);
    EXPECT_EQ(map->name, "Ñuñoa");
    ASSERT_EQ(map->layers.size(), 4u);
    EXPECT_EQ(map->layers[0].id, SampleStore::kStreets);

    // The user id of the request is not the connection's: user 2's levels come back.
    const auto levels = client->ask<LayerAccessLevels>(
        LayerAccessLevelsRequest{1, {SampleStore::kStreets, SampleStore::kLandmarks, SampleStore::kOtherLayer, 999}});
    ASSERT_TRUE(levels);
    const std::vector<LayerAccessLevels::Entry> expected = {
        {SampleStore::kStreets, 1}, {SampleStore::kLandmarks, 0}, {SampleStore::kOtherLayer, 0}, {999, 0}};
    EXPECT_EQ(levels->levels, expected);
}

TEST_F(MapServerTest, ANewAccessRequestStartsFromTheNewUsersLevels)
{
    auto client = admitted(2);
    const LayerAccessLevelsRequest request{0, {SampleStore::kLandmarks}};
    EXPECT_EQ(client->ask<LayerAccessLevels>(request)->levels[0].level, 0);
    EXPECT_TRUE(client->ask<CellGeometry>(busyCell(SampleStore::kLandmarks))->elements.empty());
    ASSERT_TRUE(client->ask<AccessAnswer>(AccessRequest{1, SampleStore::kMap})->granted());
    EXPECT_EQ(client->ask<LayerAccessLevels>(request)->levels[0].level, 3);
    EXPECT_EQ(client->ask<CellGeometry>(busyCell(SampleStore::kLandmarks))->elements.size(), 1u);
    ASSERT_FALSE(client->ask<AccessAnswer>(AccessRequest{3, SampleStore::kMap})->granted());
    client->send(busyCell(SampleStore::kLandmarks));
    EXPECT_TRUE(client->closedByServer()) << "a refused access request undoes the earlier one";
}

TEST_F(MapServerTest, CellsCarryGeometryAndValuesWithinACentimetre)
{
    auto client = admitted(1);
    const auto streets = client->ask<CellGeometry>(busyCell(SampleStore::kStreets));
    ASSERT_TRUE(streets);
    EXPECT_EQ(streets->row, 5655);
    EXPECT_EQ(streets->column, 10935);
    EXPECT_TRUE(streets->relative);
    ASSERT_EQ(streets->elements.size(), 3u);
    EXPECT_NEAR(streets->elements[0].points[1].x, -70.6489, kCentimetreInDegrees);
    EXPECT_NEAR(streets->elements[0].points[1].y, -33.4502, kCentimetreInDegrees);

    const auto world = client->ask<CellGeometry>(CellGeometryRequest{SampleStore::kWorld, 2, 3});
    ASSERT_TRUE(world);
    EXPECT_FALSE(world->relative);
    ASSERT_EQ(world->elements.size(), 1u);
    EXPECT_EQ(world->elements[0].points[0], (WirePoint{-120.123456789, -40.0}));

    const auto labels =
        client->ask<CellFieldValues>(CellFieldValuesRequest{SampleStore::kStreets, 5655, 10935, "street"});
    ASSERT_TRUE(labels);
    EXPECT_EQ(labels->field, "street");
    EXPECT_EQ(labels->values, (std::vector<std::string>{"Alameda", "Matucana"}));
    const std::vector<CellFieldValues::Reference> refs = {{1, 1}, {2, 1}, {3, 2}};
    EXPECT_EQ(labels->references, refs);
}

// Each of these still gets exactly one reply, in order, so a client that
// counts replies is never left waiting.
TEST_F(MapServerTest, UnknownOrForbiddenRequestsGetOneEmptyReplyEach)
{
    auto client = admitted(2);
    client->send(busyCell(999));
    client->send(CellGeometryRequest{SampleStore::kStreets, 1, 1});
    client->send(busyCell(SampleStore::kLandmarks));
    client->send(CellFieldValuesRequest{SampleStore::kStreets, 5655, 10935, "NOPE"});
    client->send(CellFieldValuesRequest{SampleStore::kStreets, 5655, 10935, "STREET\xC2\x81"});
    client->send(busyCell(SampleStore::kOtherLayer));
    client->send(MapDefinitionRequest{SampleStore::kOtherMap});
    for (int i = 0; i < 3; ++i) {
        const auto cell = client->reply<CellGeometry>();
        ASSERT_TRUE(cell) << "reply " << i;
        EXPECT_TRUE(cell->elements.empty());
    }
    for (const char* field : {"NOPE", "STREET\xC2\x81"}) {
        const auto values = client->reply<CellFieldValues>();
        ASSERT_TRUE(values);
        EXPECT_EQ(values->field, field);
        EXPECT_TRUE(values->references.empty() && values->values.empty());
    }
    const auto other = client->reply<CellGeometry>();
    ASSERT_TRUE(other);
    EXPECT_TRUE(other->elements.empty());
    const auto otherMap = client->reply<MapDefinition>();
    ASSERT_TRUE(otherMap);
    EXPECT_TRUE(otherMap->layers.empty());
}

// An element that is missing, or on a layer the user may not see, still gets
// its reply: an empty box.
TEST_F(MapServerTest, ElementBoxesAreTheStoredOnesOrEmpty)
{
    auto client = admitted(2);
    const auto street = client->ask<ElementBoundingBox>(ElementBoundingBoxRequest{SampleStore::kStreets, 1});
    ASSERT_TRUE(street);
    EXPECT_EQ(*street, (ElementBoundingBox{SampleStore::kStreets, 1, -70.6512, -33.4502, -70.6489, -33.4498}));
    for (const auto& [layer, element] : {std::pair{SampleStore::kStreets, 99}, std::pair{SampleStore::kLandmarks, 5},
                                         std::pair{SampleStore::kOtherLayer, 6}, std::pair{999, 1}}) {
        const auto box = client->ask<ElementBoundingBox>(ElementBoundingBoxRequest{layer, element});
        ASSERT_TRUE(box) << layer << "/" << element;
        EXPECT_EQ(*box, ElementBoundingBox::none(layer, element));
    }
}

// The sender learns of its change as the others on the map do; the cell
// values asked for afterwards are the new ones.
TEST_F(MapServerTest, ChangedValuesAreAnnouncedToEveryConnectionOnTheMap)
{
    auto sender = admitted(1);
    auto viewer = admitted(2);
    WireClient elsewhere(port);
    ASSERT_TRUE(elsewhere.ask<AccessAnswer>(AccessRequest{1, SampleStore::kOtherMap})->granted());
    sender->send(MultipleAttributeUpdate{SampleStore::kStreets, {2, 1}, {}, {}, {{"STREET", 202, "Providencia"}}});
    for (WireClient* client : {sender.get(), viewer.get()}) {
        for (const std::int32_t element : {1, 2}) {
            const auto change = client->reply<ElementChange>();
            ASSERT_TRUE(change);
            EXPECT_EQ(change->operation, ElementChange::ValuesChanged);
            EXPECT_EQ(change->element, element);
            EXPECT_EQ(change->values, (std::vector<std::string>{"Providencia", element == 1 ? "1" : "-1"}));
        }
    }
    EXPECT_TRUE(elsewhere.ask<CellGeometry>(busyCell(SampleStore::kOtherLayer))) << "nothing came before the reply";
    const auto labels =
        viewer->ask<CellFieldValues>(CellFieldValuesRequest{SampleStore::kStreets, 5655, 10935, "STREET"});
    ASSERT_TRUE(labels);
    EXPECT_EQ(labels->values, (std::vector<std::string>{"Providencia", "Matucana"}));
}

// The server holds such a client back instead of filling its memory, and
// still answers every request once the client reads.
TEST_F(MapServerTest, AClientThatDoesNotReadGetsEveryReplyLater)
{
    auto client = admitted(1);
    const auto request = buildMessage(busyCell(SampleStore::kStreets)).buffer();
    constexpr int kRequests = 50000; // some 5.7 MB of replies, more than the server holds unsent
    std::vector<std::uint8_t> burst;
    for (int i = 0; i < kRequests; ++i) {
        burst.insert(burst.end(), request.begin(), request.end());
    }
    client->sendBytes(burst);
    for (int i = 0; i < kRequests; ++i) {
        const auto cell = client->reply<CellGeometry>();
        ASSERT_TRUE(cell) << "reply " << i;
        ASSERT_EQ(cell->elements.size(), 3u);
    }
}

TEST_F(MapServerTest, AccessIsRefusedAndARequestBeforeItClosesTheConnection)
{
    WireClient refused(port);
    const auto answer = refused.ask<AccessAnswer>(AccessRequest{3, SampleStore::kMap});
    ASSERT_TRUE(answer);
    EXPECT_FALSE(answer->granted());
    refused.send(busyCell(SampleStore::kStreets));
    EXPECT_TRUE(refused.closedByServer());

    WireClient early(port);
    const auto login = early.ask<LoginAnswer>(LoginRequest{"admin", "secreto"});
    ASSERT_TRUE(login);
    EXPECT_FALSE(login->accepted()) << "the sample users have no password";
    const auto granted = early.ask<AccessAnswer>(AccessRequest{1, SampleStore::kMap});
    ASSERT_TRUE(granted && granted->granted()) << "a login does not close the connection";

    WireClient premature(port);
    premature.send(MapDefinitionRequest{SampleStore::kMap});
    EXPECT_TRUE(premature.closedByServer());
    EXPECT_NE(server->log().find("before the access request"), std::string::npos);
}

TEST_F(MapServerTest, BadInputIsDroppedOrClosedWhileOthersAreServed)
{
    auto bystander = admitted(1);

    auto client = admitted(1);
    DWBUffer truncated = buildMessage(busyCell(SampleStore::kStreets));
    std::vector<std::uint8_t> bytes = truncated.buffer();
    bytes.resize(bytes.size() - 3);
    bytes[4] = static_cast<std::uint8_t>(bytes.size());
    client->sendBytes(bytes);
    DWBUffer unknown;
    unknown.CrearHeader();
    unknown.PutInteger(999);
    unknown.cerrarMensaje(0);
    client->sendBytes(unknown.buffer());
    const auto answer = client->ask<CellGeometry>(busyCell(SampleStore::kStreets));
    ASSERT_TRUE(answer) << "the dropped requests were not answered, the next one was";
    EXPECT_EQ(answer->elements.size(), 3u);

    // Two requests in one write, the second without its signature: the
    // first is answered, then the connection closes.
    auto forged = admitted(1);
    std::vector<std::uint8_t> pair = buildMessage(busyCell(SampleStore::kStreets)).buffer();
    std::vector<std::uint8_t> second = pair;
    second[1] = 'A';
    pair.insert(pair.end(), second.begin(), second.end());
    forged->sendBytes(pair);
    ASSERT_TRUE(forged->reply<CellGeometry>());
    EXPECT_TRUE(forged->closedByServer());

    WireClient oversized(port);
    oversized.sendBytes({'M', 'I', 'C', ' ', 0xFF, 0xFF, 0xFF, 0x7F, 2, 0});
    EXPECT_TRUE(oversized.closedByServer());

    const auto served = bystander->ask<CellGeometry>(busyCell(SampleStore::kStreets));
    ASSERT_TRUE(served);
    EXPECT_EQ(served->elements.size(), 3u);
    const std::string log = server->log();
    EXPECT_NE(log.find("malformed cell geometry request"), std::string::npos);
    EXPECT_NE(log.find("unknown command 999"), std::string::npos);
    EXPECT_NE(log.find("not a request"), std::string::npos);
}

} // namespace
