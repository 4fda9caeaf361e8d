// Saving a map of 50 layers on orbelan-server over loopback: request 240 out,
// the new map stored in one transaction, reply 241 back.

#include "DemoServerThread.h"
#include "LoadClient.h"
#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "protocol/messages/SaveMapAnswer.h"
#include "protocol/messages/SaveMapRequest.h"
#include "storage/Database.h"
#include "storage/MapWriter.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <stdexcept>
#include <string>

using namespace orbelan;
using namespace orbelan::messages;

namespace {

constexpr int kLayers = 50;
constexpr int kClassesPerLayer = 8;

LayerRecord parcelLayer(int index)
{
    LayerRecord layer;
    layer.name = "Capa " + std::to_string(index);
    layer.type = 4;
    layer.gridDeltaX = 0.01f;
    layer.gridDeltaY = 0.01f;
    layer.labelField = "ROL";
    layer.thematicField = "USO";
    layer.thematicType = 1;
    layer.fields = {{"ROL", 202}, {"USO", 202}, {"AREA", 5}};
    for (int k = 0; k < kClassesPerLayer; ++k) {
        layer.classes.push_back({"Uso " + std::to_string(k), "", 0x10 * k, 0, 1, 0x0F0F0F * k, 0});
    }
    return layer;
}

// Map 1 with 50 layers of 8 classes each, opened by user 1.
struct FiftyLayerStore {
    FiftyLayerStore()
    {
        server::Database database(path);
        server::MapWriter writer(database);
        database.transaction([&] {
            writer.createMap(1, MapDefinition{.name = "Cincuenta", .minX = -71, .minY = -34, .maxX = -70,
                                              .maxY = -33, .background = 0xFFFFFF, .projection = 81, .layers = {}});
            for (int index = 1; index <= kLayers; ++index) {
                writer.addLayer(1, parcelLayer(index));
            }
            writer.addUser(QStringLiteral("admin"), 1);
            writer.grantMap(1, 1);
            writer.setMapLevel(1, 1, 3);
        });
    }

    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("fifty.sqlite"));
};

// The map as served, every layer restyled, its classes in reverse order.
SaveMapRequest restyledCopy(const MapDefinition& map)
{
    SaveMapRequest request{1, 1, map, {}};
    request.definition.layers.clear();
    request.definition.background = 0x202020;
    for (const LayerRecord& layer : map.layers) {
        SavedLayerRecord saved{layer, static_cast<std::int16_t>(layer.classes.size())};
        saved.settings.fields.clear();
        saved.settings.visibility = 2;
        saved.settings.labelBold = -1;
        saved.settings.classes.assign(layer.classes.rbegin(), layer.classes.rend());
        request.layers.push_back(std::move(saved));
    }
    return request;
}

void BM_SaveMapOfFiftyLayers(benchmark::State& state)
{
    FiftyLayerStore store;
    ServerUnderLoad server(store.path);
    LoadClient client(server.startServing());
    if (!client.ask<AccessAnswer>(AccessRequest{1, 1}).granted()) {
        throw std::runtime_error("access refused");
    }
    SaveMapRequest request = restyledCopy(client.ask<MapDefinition>(MapDefinitionRequest{1}));
    if (request.layers.size() != kLayers) {
        throw std::runtime_error("the map was not served whole");
    }
    int copy = 0;
    for (auto _ : state) {
        request.definition.name = "Copia " + std::to_string(++copy);
        if (client.ask<SaveMapAnswer>(request).result != SaveMapAnswer::kSaved) {
            state.SkipWithError("the map was not saved");
            break;
        }
    }
    state.counters["layers"] = kLayers;
}
BENCHMARK(BM_SaveMapOfFiftyLayers)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
