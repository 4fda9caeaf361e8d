// The label pass of a redraw at 1280 x 800 pixels, as the Viewer runs it
// after the geometry: 20,000 labelled entities in view, each label turned
// along its entity, duplicates suppressed unless said otherwise.
//
// Streets: 20,000 short segments at random angles on a latitude/longitude
// map 0.2 by 0.125 degrees, the way street blocks share their street's
// name. With 2,000 names each text is drawn once, for its first block;
// with 20,000 every block has a name of its own, the worst case. Points:
// the same counts drawn horizontally.
//
// Each iteration makes its surface anew, so the fonts are made within the
// timing, as in every redraw.
//
// The placed pass (label placement 1) measures every label, places it on
// its segment nearest the view's centre, drops those that collide and
// draws the rest over a halo; the first-drawn pass (0) draws each where its
// element starts. Its city has 2,000 named streets of ten blocks each,
// 20,000 segments of up to some 180 pixels, long enough to hold most names.

#include "render/LabelPlacer.h"
#include "render/MapRenderer.h"
#include "render/QtMapCanvas.h"
#include "model/MapDocument.h"
#include "model/layer.h"

#include <QFont>
#include <QImage>
#include <QPalette>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

using orbelan::layer;
using orbelan::Vertex;

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr double kWest = -70.7;
constexpr double kSouth = -33.5;
constexpr double kExtentWidth = 0.2;
constexpr double kExtentHeight = 0.125;
constexpr std::int32_t kEntities = 20'000;

// Street names of the usual length, distinct by their number.
std::string streetName(int number)
{
    static const std::vector<std::string> kStems = {"Avenida Los Leones ", "Calle Bandera ", "Pasaje Ñuble ",
                                                    "General Mackenna ", "Avenida Matta "};
    return kStems[static_cast<std::size_t>(number) % kStems.size()] + std::to_string(number);
}

struct Scene {
    orbelan::Viewport view;
    orbelan::MapDocument document{view};
    layer& map;
    QImage picture{kWidth, kHeight, QImage::Format_ARGB32_Premultiplied};
    orbelan::MapRenderer renderer{QPalette(), QFont(), 96};

    Scene(orbelan::TipoLayer kind, int names, bool allowDuplicates, std::int16_t placement, int blocks)
        : map(document.addLayer("Calles", 1, kind))
    {
        renderer.setLabelPlacement(placement);
        map.AccessLevel = orbelan::ALViewer;
        map.setUserVisibility(2);
        map.setUserLabelVisibility(2);
        map.lblAllowDuplicates = allowDuplicates;
        map.Loaded = true;
        map.ThematicMap().Add(0, 1, 0x404040, 0xC0C000, 0, "MICanyMIC", "");
        addEntities(names, blocks);
        view.setSize(kWidth, kHeight);
        view.SetView(kWest, kSouth, kWest + kExtentWidth, kSouth + kExtentHeight);
        picture.fill(Qt::white);
        orbelan::QtMapCanvas canvas(picture, view, QPalette());
        map.Redraw(view.viewBox(), canvas);
    }

    // kEntities segments in all, blocks to an entity.
    void addEntities(int names, int blocks)
    {
        std::mt19937 random(5);
        std::uniform_real_distribution<double> x(kWest, kWest + kExtentWidth);
        std::uniform_real_distribution<double> y(kSouth, kSouth + kExtentHeight);
        const double reach = blocks == 1 ? 0.001 : 0.02;
        std::uniform_real_distribution<double> step(-reach, reach);
        for (std::int32_t id = 1; id <= kEntities / blocks; ++id) {
            std::vector<Vertex> vertices = {{x(random), y(random)}};
            for (int block = 0; map.Tipo != orbelan::pointlayer && block < blocks; ++block) {
                vertices.push_back({vertices.back().X + step(random), vertices.back().Y + step(random)});
            }
            map.Entidades.AddEntity(id, vertices, map).IDLabel = map.GetLabelIndex(streetName(id % names));
        }
    }

    void drawLabels()
    {
        orbelan::QtMapCanvas canvas(picture, view, QPalette());
        renderer.drawLabels(canvas, view.viewBox(), document);
    }

    std::size_t placed()
    {
        orbelan::QtMapCanvas canvas(picture, view, QPalette());
        std::vector<orbelan::LabelCandidate> candidates;
        map.CollectLabels(view.viewBox(), canvas, 0, candidates);
        return orbelan::LabelPlacer(canvas.surface(), canvas.labelFonts()).place(std::move(candidates)).size();
    }
};

void BM_Labels(benchmark::State& state, orbelan::TipoLayer kind, int names, bool allowDuplicates,
               std::int16_t placement = 0, int blocks = 1)
{
    Scene scene(kind, names, allowDuplicates, placement, blocks);
    for (auto _ : state) {
        scene.drawLabels();
        benchmark::DoNotOptimize(scene.picture.constBits());
    }
    state.counters["in_view"] = static_cast<double>(scene.map.DrawnIDs().size());
    if (placement == 1) {
        state.counters["placed"] = static_cast<double>(scene.placed());
    }
}

BENCHMARK_CAPTURE(BM_Labels, streets_2000_names, orbelan::polylinelayer, 2'000, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Labels, streets_20000_names, orbelan::polylinelayer, kEntities, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Labels, streets_2000_names_all_drawn, orbelan::polylinelayer, 2'000, true)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Labels, points_20000_names, orbelan::pointlayer, kEntities, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Labels, placed_city_2000_streets, orbelan::polylinelayer, 2'000, false, 1, 10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Labels, placed_streets_2000_names, orbelan::polylinelayer, 2'000, false, 1)
    ->Unit(benchmark::kMillisecond);

} // namespace
