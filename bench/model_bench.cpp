// Benchmarks of the map data model: filling a layer, the point pick, the
// polygon selection and removing entities one by one.
//
// Memory figures read the kernel's accounting in /proc/self/status, so they
// are reported on Linux only.

#include "model/layer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <memory>
#include <numbers>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

using orbelan::layer;
using orbelan::Vertex;

namespace {

constexpr std::int32_t kMillion = 1'000'000;
constexpr std::int32_t kHundredThousand = 100'000;
constexpr std::size_t kVerticesPerLine = 10;
// Entities are laid out on a grid of this many columns, this far apart.
constexpr std::int32_t kColumns = 1000;
constexpr double kSpacing = 0.001;

// A kilobyte figure of /proc/self/status ("VmRSS", "VmHWM"), 0 where there
// is none.
double statusMegabytes(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    std::string name;
    double kilobytes = 0;
    while (status >> name) {
        if (name == field + ":") {
            status >> kilobytes;
            return kilobytes / 1024;
        }
        status.ignore(1 << 10, '\n');
    }
    return 0;
}

// Gives freed memory back to the system, so that each run starts from the
// same resident size.
void releaseFreedMemory()
{
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
}

// A polyline of ten vertices, a short zigzag at its grid place.
std::array<Vertex, kVerticesPerLine> polyline(std::int32_t id)
{
    const double x = -70 + (id % kColumns) * kSpacing;
    const double y = -33 + (id / kColumns) * kSpacing;
    std::array<Vertex, kVerticesPerLine> vertices;
    for (std::size_t k = 0; k < vertices.size(); ++k) {
        vertices[k] = {x + static_cast<double>(k) * kSpacing / 12, y + (k % 2 == 0 ? 0 : kSpacing / 4)};
    }
    return vertices;
}

// The hit tests do not ask their view anything.
class NoView : public orbelan::ParentMap {
public:
    std::int32_t Height() const override { return 0; }
    float DrawScale() const override { return 0; }
    std::int32_t ImageNumberOf(std::string_view) const override { return -1; }
};

std::unique_ptr<layer> polylineLayer(std::int32_t count, bool drawn)
{
    static const NoView view;
    auto lines = std::make_unique<layer>(view);
    lines->Tipo = orbelan::polylinelayer;
    lines->Selectable = true;
    lines->ThematicMap().Add(0, 1, 0, 0xC0C000, 0, "MICanyMIC", "");
    for (std::int32_t id = 1; id <= count; ++id) {
        lines->Entidades.AddEntity(id, polyline(id), *lines);
        if (drawn) {
            lines->AppendDrawnID(id);
        }
    }
    return lines;
}

void BM_AddMillionPolylines(benchmark::State& state)
{
    for (auto _ : state) {
        const double before = statusMegabytes("VmRSS");
        std::unique_ptr<layer> lines = polylineLayer(kMillion, false);
        state.PauseTiming();
        const double after = statusMegabytes("VmRSS");
        state.counters["resident_MB"] = after;
        state.counters["peak_MB"] = statusMegabytes("VmHWM");
        state.counters["bytes_per_entity"] = (after - before) * 1024 * 1024 / kMillion;
        lines.reset();
        releaseFreedMemory();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AddMillionPolylines)->Unit(benchmark::kMillisecond)->Iterations(3);

// Clicks at random places along the drawn lines, 0.1 and 0.3 thousandths of
// a degree off one of them: every click hits, after a look at every drawn
// line.
std::vector<Vertex> clicksAlongLines()
{
    std::mt19937 random(7);
    std::vector<Vertex> clicks(1024);
    for (Vertex& click : clicks) {
        const auto line = polyline(static_cast<std::int32_t>(random() % kHundredThousand) + 1);
        click = {(line[2].X + line[3].X) / 2, (line[2].Y + line[3].Y) / 2 + (random() % 2 == 0 ? 0.0001 : 0.0003)};
    }
    return clicks;
}

// The argument is the reach of three pixels in millionths of a degree: 0 in
// a close view, where the layer's tolerance rules; 10,000 in a view of the
// whole layer, where a pick looks at lines ten spacings around.
void BM_SelectByPoint(benchmark::State& state)
{
    std::unique_ptr<layer> lines = polylineLayer(kHundredThousand, true);
    const std::vector<Vertex> clicks = clicksAlongLines();
    const double reach = static_cast<double>(state.range(0)) * 1E-6;
    std::size_t next = 0;
    std::int64_t hits = 0;
    for (auto _ : state) {
        const Vertex& click = clicks[next++ % clicks.size()];
        const std::int32_t id = lines->SelectByPoint(click.X, click.Y, reach);
        hits += id != 0 ? 1 : 0;
        benchmark::DoNotOptimize(id);
    }
    state.counters["hit_share"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_SelectByPoint)->Arg(0)->Arg(10'000)->Unit(benchmark::kMicrosecond);

// The snapping of the end point under the moving mouse: the nearest vertex
// of any drawn line.
void BM_NearestVertexInLayer(benchmark::State& state)
{
    std::unique_ptr<layer> lines = polylineLayer(kHundredThousand, true);
    const std::vector<Vertex> clicks = clicksAlongLines();
    std::size_t next = 0;
    for (auto _ : state) {
        const Vertex& click = clicks[next++ % clicks.size()];
        benchmark::DoNotOptimize(lines->NearestVertexInLayer(click.X, click.Y));
    }
}
BENCHMARK(BM_NearestVertexInLayer)->Unit(benchmark::kMicrosecond);

// A 20-vertex ring over about a tenth of the layer's extent.
void BM_SelectElementsInPolygon(benchmark::State& state)
{
    std::unique_ptr<layer> lines = polylineLayer(kHundredThousand, true);
    const double centreX = -70 + kColumns * kSpacing / 2;
    const double centreY = -33 + (kHundredThousand / kColumns) * kSpacing / 2;
    const double radius = 0.09;
    std::vector<double> xs;
    std::vector<double> ys;
    for (int k = 0; k < 20; ++k) {
        const double angle = 2 * std::numbers::pi * k / 20;
        xs.push_back(centreX + radius * std::cos(angle));
        ys.push_back(centreY + radius * std::sin(angle));
    }
    std::size_t selected = 0;
    for (auto _ : state) {
        const std::vector<std::int32_t> ids = lines->SelectElementsInPolygon(xs, ys, false);
        selected = ids.size();
        benchmark::DoNotOptimize(ids.data());
    }
    state.counters["selected"] = static_cast<double>(selected);
}
BENCHMARK(BM_SelectElementsInPolygon)->Unit(benchmark::kMillisecond);

// A tenth of the entities, in random order, as change notifications delete
// them.
void BM_RemoveHundredThousandOfAMillion(benchmark::State& state)
{
    std::vector<std::int32_t> doomed(kMillion);
    std::iota(doomed.begin(), doomed.end(), 1);
    std::shuffle(doomed.begin(), doomed.end(), std::mt19937(11));
    doomed.resize(kHundredThousand);
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<layer> lines = polylineLayer(kMillion, false);
        state.ResumeTiming();
        for (std::int32_t id : doomed) {
            lines->RemoveEntity(id);
        }
        state.PauseTiming();
        benchmark::DoNotOptimize(lines->Entidades.count());
        lines.reset();
        releaseFreedMemory();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_RemoveHundredThousandOfAMillion)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
