#include "SampleStore.h"

#include "storage/MapWriter.h"

#include <tuple>

using namespace orbelan;
using namespace orbelan::server;

namespace {

messages::LayerRecord layer(std::int32_t id, const char* name, std::int16_t type)
{
    messages::LayerRecord record;
    record.id = id;
    record.name = name;
    record.type = type;
    record.gridDeltaX = SampleStore::kDelta;
    record.gridDeltaY = SampleStore::kDelta;
    return record;
}

} // namespace

SampleStore::SampleStore()
    : database_(std::make_unique<Database>(path()))
{
    database_->transaction([this] {
        addMaps();
        addElements();
        addUsers();
    });
}

void SampleStore::addMaps()
{
    MapWriter writer(*database_);
    messages::MapDefinition header{.name = "Ñuñoa", .minX = -70.7f, .minY = -33.5f, .maxX = -70.5f, .maxY = -33.4f,
                                   .background = 0xF0F0F0, .projection = 81};
    writer.createMap(kMap, header);
    header.name = "Otro";
    writer.createMap(kOtherMap, header);

    messages::LayerRecord streets = layer(kStreets, "Calles", 2);
    streets.fields = {{"STREET", 202}, {"DIR", 2}};
    streets.labelField = "STREET";
    streets.labelBold = 1;
    writer.addLayer(kMap, streets);
    messages::LayerRecord blocks = layer(kBlocks, "Manzanas", 4);
    blocks.fields = {{"USO", 202}, {"AREA", 5}};
    blocks.thematicField = "USO";
    blocks.thematicType = 1;
    blocks.classes = {{"Comercial", "Comercial", 255, 0, 1, 0xFF, 0},
                      {"Residencial", "Residencial", 0, 0, 1, 0xFF00, 0}};
    writer.addLayer(kMap, blocks);
    writer.addLayer(kMap, layer(kLandmarks, "Hitos", 1));
    messages::LayerRecord world = layer(kWorld, "Mundo", 4);
    world.gridDeltaX = 60.0f;
    world.gridDeltaY = 60.0f;
    writer.addLayer(kMap, world);
    writer.addLayer(kOtherMap, layer(kOtherLayer, "Capa", 1));
}

void SampleStore::addElements()
{
    MapWriter writer(*database_);
    // Around cell (row 5655, column 10935): -70.65 / -33.45 at 0.01 degrees.
    writer.addElement(kStreets, {1, {{-70.6512, -33.4498}, {-70.6489, -33.4502}}, {"Alameda", 1}});
    writer.addElement(kStreets, {2, {{-70.6508, -33.4501}, {-70.6505, -33.4495}}, {"Alameda", -1}});
    writer.addElement(kStreets, {3, {{-70.6502, -33.4503}, {-70.6497, -33.4497}}, {"Matucana"}});
    // A polygon whose box spans rows 5652..5657 and columns 10931..10934.
    writer.addElement(kBlocks,
                      {7,
                       {{-70.6912, -33.4789}, {-70.6588, -33.4789}, {-70.6588, -33.4291}, {-70.6912, -33.4789}},
                       {"Comercial", 1234.5}});
    writer.addElement(kLandmarks, {5, {{-70.65, -33.45}}, {}});
    writer.addElement(
        kWorld, {8, {{-120.123456789, -40.0}, {120.0, -40.0}, {120.0, 40.987654321}, {-120.123456789, -40.0}}, {}});
    writer.addElement(kOtherLayer, {6, {{-70.65, -33.45}}, {}});
}

void SampleStore::addUsers()
{
    MapWriter writer(*database_);
    writer.addUser(QStringLiteral("dibujante"), 1);
    writer.addUser(QStringLiteral("visor"), 2);
    writer.addUser(QStringLiteral("invitado"), 3);
    // User, map and the user's level on it.
    const std::tuple<std::int32_t, std::int32_t, std::int16_t> grants[] = {
        {1, kMap, 3}, {1, kOtherMap, 3}, {2, kMap, 1}, {3, kOtherMap, 1}};
    for (const auto& [user, map, level] : grants) {
        writer.grantMap(user, map);
        writer.setMapLevel(user, map, level);
    }
    writer.setLayerLevel(2, kLandmarks, 0);
}
