// Speed of the UTM and Albers projections in both directions over a million
// points, side by side with PROJ's proj_trans_generic on the same points and
// definitions. After the usual table the program prints, for every pair, the
// ratio of our time to PROJ's (below 1: ours is faster).

#include "projection/CAlbers.h"
#include "projection/CProjection.h"
#include "projection/CUTM.h"
#include "projection/ProjectionMath.h"

#include <benchmark/benchmark.h>
#include <proj.h>

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace orbelan;

namespace {

constexpr std::size_t kPoints = 1'000'000;
constexpr double kMajor = 6378137.0;
constexpr double kMinor = 6356752.3142;

struct Points {
    std::vector<double> lon, lat; // degrees
    std::vector<double> x, y;     // our forward results, the inverse's input
};

// A case: our projection and PROJ's definition of the same one, and points
// spread uniformly over a geographic box.
struct Case {
    std::unique_ptr<CProjection> ours;
    std::string definition;
    Points points;
};

Points spread(double west, double south, double east, double north)
{
    std::mt19937_64 random(2024);
    std::uniform_real_distribution<double> lon(west, east);
    std::uniform_real_distribution<double> lat(south, north);
    Points points;
    for (std::size_t i = 0; i < kPoints; ++i) {
        points.lon.push_back(lon(random));
        points.lat.push_back(lat(random));
    }
    return points;
}

// UTM zone 19 south (code 81), over the whole zone.
Case utmCase()
{
    auto utm = std::make_unique<CUTM>();
    utm->Init(kMajor, kMinor, std::array<double, 2>{-19, 0.9996});
    return {std::move(utm), "+proj=utm +zone=19 +south +ellps=WGS84", spread(-72, -80, -66, 0)};
}

// Albers as a code-1 map of Chile sets it up: parallels at the box's edges,
// origin at its centre. PROJ reads the same radians as ours.
Case albersCase()
{
    const std::array<double, 6> params = {-56.0, -17.5, -71.0, -36.75, 5E6, 5E6};
    auto albers = std::make_unique<CAlbers>();
    albers->Init(kMajor, kMinor, params);
    const auto angle = [](double degrees) {
        char text[32];
        std::snprintf(text, sizeof text, "%.17g", degrees / ProjectionMath::kDegreesPerRadian * 57.29577951308232);
        return std::string(text);
    };
    return {std::move(albers),
            "+proj=aea +lat_1=" + angle(params[0]) + " +lat_2=" + angle(params[1]) + " +lon_0=" + angle(params[2])
                + " +lat_0=" + angle(params[3]) + " +x_0=5000000 +y_0=5000000 +ellps=WGS84",
            spread(-76, -56, -66, -17.5)};
}

Case& cases(int which)
{
    static std::array<Case, 2> all = [] {
        std::array<Case, 2> made = {utmCase(), albersCase()};
        for (Case& c : made) {
            c.points.x.resize(kPoints);
            c.points.y.resize(kPoints);
            for (std::size_t i = 0; i < kPoints; ++i) {
                c.ours->Project(c.points.lon[i], c.points.lat[i], c.points.x[i], c.points.y[i]);
            }
        }
        return made;
    }();
    return all[which];
}

void ours(benchmark::State& state, int which, bool forward)
{
    const Case& c = cases(which);
    const CProjection& projection = *c.ours;
    std::vector<double> a(kPoints), b(kPoints);
    for (auto _ : state) {
        std::size_t done = 0;
        for (std::size_t i = 0; i < kPoints; ++i) {
            done += forward ? projection.Project(c.points.lon[i], c.points.lat[i], a[i], b[i])
                            : projection.Unproject(c.points.x[i], c.points.y[i], a[i], b[i]);
        }
        if (done != kPoints) {
            state.SkipWithError("points were refused");
        }
        benchmark::DoNotOptimize(a.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPoints));
}

// PROJ's bare operation takes radians; the copy of the input each round is
// not timed, since proj_trans_generic works in place.
void proj(benchmark::State& state, int which, bool forward)
{
    const Case& c = cases(which);
    PJ_CONTEXT* context = proj_context_create();
    PJ* pj = proj_create(context, c.definition.c_str());
    std::vector<double> a(kPoints), b(kPoints);
    for (auto _ : state) {
        state.PauseTiming();
        for (std::size_t i = 0; i < kPoints; ++i) {
            a[i] = forward ? ProjectionMath::ToRadians(c.points.lon[i]) : c.points.x[i];
            b[i] = forward ? ProjectionMath::ToRadians(c.points.lat[i]) : c.points.y[i];
        }
        state.ResumeTiming();
        const std::size_t done = proj_trans_generic(pj, forward ? PJ_FWD : PJ_INV, a.data(), sizeof(double), kPoints,
                                                    b.data(), sizeof(double), kPoints, nullptr, 0, 0, nullptr, 0, 0);
        if (done != kPoints || proj_errno(pj) != 0) {
            state.SkipWithError("PROJ refused points");
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPoints));
    proj_destroy(pj);
    proj_context_destroy(context);
}

constexpr const char* kNames[] = {"UTM", "Albers"};

void registerAll()
{
    for (int which = 0; which < 2; ++which) {
        for (const bool forward : {true, false}) {
            const std::string pair = std::string(kNames[which]) + (forward ? "Forward" : "Inverse");
            benchmark::RegisterBenchmark(("BM_" + pair + "/ours").c_str(), ours, which, forward)
                ->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark(("BM_" + pair + "/PROJ").c_str(), proj, which, forward)
                ->Unit(benchmark::kMillisecond);
        }
    }
}

// The console table, and each run's time kept by name for the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (!run.error_occurred && (run.run_type == Run::RT_Iteration || run.aggregate_name == "median")) {
                times_[run.run_name.function_name] = run.GetAdjustedCPUTime();
            }
        }
    }

    void printRatios() const
    {
        std::printf("\nours / PROJ (CPU time per million points):\n");
        for (const auto& [name, time] : times_) {
            const std::string prefix = name.substr(0, name.rfind('/'));
            if (name.ends_with("/ours") && times_.contains(prefix + "/PROJ")) {
                std::printf("  %-22s %8.2f ms / %8.2f ms = %.2f\n", prefix.c_str(), time,
                            times_.at(prefix + "/PROJ"), time / times_.at(prefix + "/PROJ"));
            }
        }
    }

private:
    std::map<std::string, double> times_;
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    registerAll();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    benchmark::Shutdown();
    return 0;
}
