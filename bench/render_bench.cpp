// A complete redraw of the map at 1280 x 800 pixels through the QPainter
// surface, as the Viewer does it: (a) 100,000 polylines of 10 vertices and
// (b) 20,000 filled polygons of 50 vertices, a million vertices each, on a
// latitude/longitude map 20 by 12.5 degrees. Each is viewed whole and zoomed
// to a tenth of the extent's width and height about its centre.
//
// Lines are random walks of steps near 0.02 degrees (about a pixel when the
// map is seen whole, 13 pixels zoomed); polygons are jagged rings of radius
// 0.02 to 0.08 degrees.

#include "render/QtMapCanvas.h"
#include "model/layer.h"

#include <QImage>
#include <QPalette>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <vector>

using orbelan::layer;
using orbelan::Vertex;

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr double kWest = -80;
constexpr double kSouth = -30;
constexpr double kExtentWidth = 20;
constexpr double kExtentHeight = 12.5;
constexpr std::int32_t kLines = 100'000;
constexpr std::size_t kVerticesPerLine = 10;
constexpr std::int32_t kPolygons = 20'000;
constexpr std::size_t kVerticesPerPolygon = 50;

void makeVisible(layer& map, orbelan::TipoLayer kind)
{
    map.Tipo = kind;
    map.AccessLevel = orbelan::ALViewer;
    map.setUserVisibility(2);
    map.ThematicMap().Add(0, 1, 0x404040, 0xC0C000, 0, "MICanyMIC", "");
}

void addLines(layer& map)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> x(kWest, kWest + kExtentWidth);
    std::uniform_real_distribution<double> y(kSouth, kSouth + kExtentHeight);
    std::uniform_real_distribution<double> step(-0.02, 0.02);
    std::vector<Vertex> line(kVerticesPerLine);
    for (std::int32_t id = 1; id <= kLines; ++id) {
        line[0] = {x(random), y(random)};
        for (std::size_t k = 1; k < line.size(); ++k) {
            line[k] = {line[k - 1].X + step(random), line[k - 1].Y + step(random)};
        }
        map.Entidades.AddEntity(id, line, map);
    }
}

void addPolygons(layer& map)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> x(kWest, kWest + kExtentWidth);
    std::uniform_real_distribution<double> y(kSouth, kSouth + kExtentHeight);
    std::uniform_real_distribution<double> radius(0.02, 0.08);
    std::uniform_real_distribution<double> jag(0.8, 1.0);
    std::vector<Vertex> ring(kVerticesPerPolygon);
    for (std::int32_t id = 1; id <= kPolygons; ++id) {
        const Vertex centre{x(random), y(random)};
        const double r = radius(random);
        for (std::size_t k = 0; k < ring.size(); ++k) {
            const double angle = 2 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(ring.size());
            const double reach = r * jag(random);
            ring[k] = {centre.X + reach * std::cos(angle), centre.Y + reach * std::sin(angle)};
        }
        map.Entidades.AddEntity(id, ring, map);
    }
}

struct Scene {
    orbelan::Viewport view;
    layer map{view};
    QImage picture{kWidth, kHeight, QImage::Format_ARGB32_Premultiplied};
    bool antialiasing = false;

    void redraw()
    {
        picture.fill(Qt::white);
        orbelan::QtMapCanvas canvas(picture, view, QPalette());
        canvas.setAntialiasing(antialiasing);
        map.Redraw(view.viewBox(), canvas);
    }
};

// One scene per kind, built once: the first redraw takes the arrivals, so
// every timed redraw is a complete one.
Scene& scene(orbelan::TipoLayer kind)
{
    static Scene lines;
    static Scene polygons;
    Scene& wanted = kind == orbelan::polygonlayer ? polygons : lines;
    if (wanted.map.Entidades.count() == 0) {
        makeVisible(wanted.map, kind);
        if (kind == orbelan::polygonlayer) {
            addPolygons(wanted.map);
        } else {
            addLines(wanted.map);
        }
        wanted.view.setSize(kWidth, kHeight);
        wanted.view.SetView(kWest, kSouth, kWest + kExtentWidth, kSouth + kExtentHeight);
        wanted.redraw();
    }
    return wanted;
}

void view(Scene& scene, double share)
{
    const double halfWidth = kExtentWidth * share / 2;
    const double halfHeight = kExtentHeight * share / 2;
    const double cx = kWest + kExtentWidth / 2;
    const double cy = kSouth + kExtentHeight / 2;
    scene.view.SetView(cx - halfWidth, cy - halfHeight, cx + halfWidth, cy + halfHeight);
}

void BM_Redraw(benchmark::State& state, orbelan::TipoLayer kind, double share, bool antialiasing = false)
{
    Scene& drawn = scene(kind);
    view(drawn, share);
    drawn.antialiasing = antialiasing;
    for (auto _ : state) {
        drawn.redraw();
        benchmark::DoNotOptimize(drawn.picture.constBits());
    }
    state.counters["drawn"] = static_cast<double>(drawn.map.DrawnIDs().size());
}

BENCHMARK_CAPTURE(BM_Redraw, polylines_whole, orbelan::polylinelayer, 1.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Redraw, polylines_tenth, orbelan::polylinelayer, 0.1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Redraw, polygons_whole, orbelan::polygonlayer, 1.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Redraw, polygons_tenth, orbelan::polygonlayer, 0.1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Redraw, polylines_whole_antialiased, orbelan::polylinelayer, 1.0, true)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Redraw, polygons_whole_antialiased, orbelan::polygonlayer, 1.0, true)
    ->Unit(benchmark::kMillisecond);

} // namespace
