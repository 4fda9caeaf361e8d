#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/messages/SaveMapAnswer.h"
#include "protocol/messages/SaveMapRequest.h"
#include "serving/RequestHandler.h"
#include "storage/UserStore.h"
#include "SampleStore.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace orbelan;
using namespace orbelan::server;
using messages::SaveMapAnswer;

namespace {

class SaveMap : public ::testing::Test {
protected:
    template <typename Reply, typename Request>
    Reply ask(const Request& request)
    {
        DWBUffer message = messages::buildMessage(request);
        const HandlerOutcome outcome = handler.handle(session, message);
        EXPECT_EQ(outcome.action, HandlerOutcome::Action::Reply) << outcome.note;
        DWBUffer reply(*outcome.reply);
        EXPECT_EQ(messages::readHeader(reply), Reply::kCode);
        return Reply::decode(reply);
    }
    std::int16_t save(const messages::SaveMapRequest& request) { return ask<SaveMapAnswer>(request).result; }

    // Map 1 as its definition has it, every layer restyled: the blocks
    // first, then the streets, the other two left out.
    messages::SaveMapRequest restyled(const std::string& name)
    {
        const auto map = ask<messages::MapDefinition>(messages::MapDefinitionRequest{SampleStore::kMap});
        messages::SaveMapRequest request{
            1, SampleStore::kMap,
            {.name = name, .minX = -71, .minY = -34, .maxX = -70, .maxY = -33, .background = 0x102030,
             .projection = 81},
            {}};
        for (const std::size_t index : {1u, 0u}) {
            messages::SavedLayerRecord layer{map.layers.at(index), 0};
            layer.settings.fields.clear();
            layer.settings.visibility = 2;
            layer.settings.zoomMin = 0.25f;
            layer.settings.zoomMax = 8;
            layer.settings.drawColor = 0x0000FF;
            layer.settings.labelField = "STREET";
            layer.settings.labelZoomMin = 0.5f;
            layer.settings.labelZoomMax = 4;
            layer.settings.labelVisibility = 2;
            layer.settings.labelBold = -1;
            layer.settings.labelColor = 0x00FF00;
            layer.settings.thematicField = "USO";
            layer.settings.thematicType = 1;
            layer.settings.classes = {{"Residencial", "", 1, 2, 3, 4, 5}, {"10", "20", 6, 0, 1, 7, 1}};
            layer.classCount = 2;
            request.layers.push_back(layer);
        }
        return request;
    }

    std::vector<messages::LoginAnswer::Map> mapsOf(std::int32_t user) { return users.mapsOf(user); }

    SampleStore store;
    RequestHandler handler{store.database()};
    UserStore users{store.database()};
    SessionState session{true, 1, SampleStore::kMap, {}};
};

// The saved map is a new map of the user's, served with the saved settings
// over the stored layers: same ids, types, grids and fields, same levels.
TEST_F(SaveMap, TheSavedMapIsServedWithItsSettingsOverTheStoredLayers)
{
    const auto source = ask<messages::MapDefinition>(messages::MapDefinitionRequest{SampleStore::kMap});
    const messages::SaveMapRequest request = restyled("Mi mapa");
    ASSERT_EQ(save(request), SaveMapAnswer::kSaved);

    const auto maps = mapsOf(1);
    const auto saved = std::find_if(maps.begin(), maps.end(), [](const auto& map) { return map.name == "Mi mapa"; });
    ASSERT_NE(saved, maps.end());
    EXPECT_EQ(ask<messages::AccessAnswer>(messages::AccessRequest{1, saved->code}).result,
              messages::AccessAnswer::kGranted);
    const auto definition = ask<messages::MapDefinition>(messages::MapDefinitionRequest{saved->code});
    EXPECT_EQ(definition.name, "Mi mapa");
    EXPECT_EQ(std::tuple(definition.minX, definition.maxY, definition.background, definition.projection),
              std::tuple(-71.0f, -33.0f, 0x102030, 81));
    ASSERT_EQ(definition.layers.size(), 2u);
    for (std::size_t index = 0; index < 2; ++index) {
        messages::LayerRecord expected = request.layers[index].settings;
        expected.fields = source.layers[1 - index].fields;
        expected.labelBold = 1;
        EXPECT_EQ(definition.layers[index], expected) << "layer " << index;
    }
    const auto levels = ask<messages::LayerAccessLevels>(
        messages::LayerAccessLevelsRequest{1, {SampleStore::kBlocks, SampleStore::kStreets}});
    ASSERT_EQ(levels.levels.size(), 2u);
    EXPECT_EQ(levels.levels[0].level, 3);

    const auto sourceAgain = ask<messages::MapDefinition>(messages::MapDefinitionRequest{SampleStore::kMap});
    EXPECT_EQ(sourceAgain, source) << "the source map keeps its own settings";
}

TEST_F(SaveMap, RefusesEmptyAndTakenNamesForeignUsersAndForeignLayers)
{
    const std::size_t maps = mapsOf(1).size();
    EXPECT_EQ(save(restyled("")), SaveMapAnswer::kInvalidName);
    EXPECT_EQ(save(restyled("  ")), SaveMapAnswer::kInvalidName);
    EXPECT_EQ(save(restyled("Ñuñoa")), SaveMapAnswer::kInvalidName);
    ASSERT_EQ(save(restyled("Copia")), SaveMapAnswer::kSaved);
    EXPECT_EQ(save(restyled("Copia")), SaveMapAnswer::kInvalidName);
    EXPECT_EQ(mapsOf(1).size(), maps + 1);

    messages::SaveMapRequest foreignLayer = restyled("Ajena");
    foreignLayer.layers[0].settings.id = SampleStore::kOtherLayer;
    EXPECT_EQ(save(foreignLayer), SaveMapAnswer::kRefused);
    messages::SaveMapRequest twice = restyled("Dos veces");
    twice.layers[1] = twice.layers[0];
    EXPECT_EQ(save(twice), SaveMapAnswer::kRefused);
    messages::SaveMapRequest otherUser = restyled("Otro usuario");
    otherUser.user = 2;
    EXPECT_EQ(save(otherUser), SaveMapAnswer::kRefused);
    EXPECT_EQ(mapsOf(1).size(), maps + 1);

    // User 3 may open map 2 only.
    const messages::SaveMapRequest request = restyled("Sin acceso");
    session = SessionState{true, 3, SampleStore::kOtherMap, {}};
    messages::SaveMapRequest byUser3 = request;
    byUser3.user = 3;
    const std::size_t user3Maps = mapsOf(3).size();
    EXPECT_EQ(save(byUser3), SaveMapAnswer::kRefused);
    EXPECT_EQ(mapsOf(3).size(), user3Maps);
}

// A store failure halfway (here the classes cannot be written) is result
// 1000, logged, and leaves no part of the map behind.
TEST_F(SaveMap, AFailureHalfwayStoresNothing)
{
    const messages::SaveMapRequest request = restyled("Mi mapa");
    store.database().execute(QStringLiteral("DROP TABLE saved_classes"));
    DWBUffer message = messages::buildMessage(request);
    const HandlerOutcome outcome = handler.handle(session, message);
    DWBUffer reply(*outcome.reply);
    messages::readHeader(reply);
    EXPECT_EQ(SaveMapAnswer::decode(reply).result, SaveMapAnswer::kUnexpectedError);
    EXPECT_TRUE(outcome.notable);
    EXPECT_EQ(mapsOf(1).size(), 2u);
}

} // namespace
