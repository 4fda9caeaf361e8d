// The legend of a map with 10 layers and 200 classes, from nothing to a
// window painted once: every block and class row made, every symbol drawn.

#include "configuration/dlgMapReferences.h"
#include "model/MapDocument.h"
#include "view/Viewport.h"

#include <QPixmap>

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace orbelan;

constexpr std::int32_t kLayers = 10;
constexpr int kClassesPerLayer = 20;

void addLayers(MapDocument& document)
{
    const TipoLayer kinds[] = {pointlayer, polylinelayer, polygonlayer};
    for (std::int32_t id = 1; id <= kLayers; ++id) {
        layer& added = document.addLayer("layer " + std::to_string(id), id, kinds[id % 3]);
        added.Visible = true;
        added.bb.Union(-71, -34, -70, -33);
        added.ThematicType = 2;
        added.ThematicMap().Add(0, 1, 0, 0, 0, "MICanyMIC", "");
        for (int row = 1; row < kClassesPerLayer; ++row) {
            const std::int32_t color = row * 0x0C0A08;
            added.ThematicMap().Add(static_cast<std::int16_t>(row % 5), 2, color, color,
                                    static_cast<std::int16_t>(row % 8), std::to_string(row * 10),
                                    std::to_string(row * 10 + 10));
        }
    }
}

void BM_OpenLegend(benchmark::State& state)
{
    Viewport view;
    MapDocument document(view);
    addLayers(document);
    BoundingBox inView;
    inView.Union(-72, -35, -69, -32);
    for (auto _ : state) {
        dlgMapReferences legend;
        legend.build(document, inView, legend.palette());
        legend.show();
        benchmark::DoNotOptimize(legend.grab());
    }
}
BENCHMARK(BM_OpenLegend)->Unit(benchmark::kMillisecond);

} // namespace
