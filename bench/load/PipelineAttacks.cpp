#include "load/PipelineAttacks.h"

#include "load/EmptyCellSource.h"
#include "load/LayerIdSource.h"
#include "load/MapSurvey.h"
#include "load/TextFormat.h"
#include "load/WellBehavedClient.h"

#include <stdexcept>

namespace orbelan::load {

namespace {

constexpr std::size_t kDistinctCells = 1'300'000;
constexpr std::size_t kCellsInFlight = 64 * 1024;
constexpr std::size_t kIdsThroughLevels = 1'400'000;
constexpr std::size_t kIdsThroughCells = 100'000;
constexpr std::size_t kLevelsInFlight = 256 * 1024;
constexpr std::chrono::seconds kDeadline{60};

struct OpenedMap {
    WireConnection connection;
    MapSurvey map;
};

std::vector<OpenedMap> openDemoMaps(const sockaddr_in& server)
{
    std::vector<OpenedMap> opened;
    for (const std::int32_t code : {1, 2, 3}) {
        WireConnection connection(server);
        if (auto map = MapSurvey::open(connection, WellBehavedClient::kUser, code)) {
            opened.push_back({std::move(connection), std::move(*map)});
        }
    }
    if (opened.empty()) {
        throw std::runtime_error("no demo map opens for user 1");
    }
    return opened;
}

} // namespace

std::unique_ptr<PipelineAttack> emptyCellsAttack(const sockaddr_in& server)
{
    std::vector<OpenedMap> opened = openDemoMaps(server);
    std::size_t inside = 0;
    for (const OpenedMap& each : opened) {
        inside += each.map.cells().size();
    }
    const std::size_t outside = kDistinctCells - std::min(inside, kDistinctCells);
    std::vector<Pipeline> pipelines;
    std::string maps;
    for (std::size_t i = 0; i < opened.size(); ++i) {
        const std::size_t first = outside * i / opened.size();
        const std::size_t end = outside * (i + 1) / opened.size();
        maps += (i == 0 ? "" : ", ") + std::to_string(opened[i].map.map());
        pipelines.emplace_back(std::move(opened[i].connection),
                               std::make_unique<EmptyCellSource>(opened[i].map, first, end - first), kCellsInFlight);
    }
    return std::make_unique<PipelineAttack>(
        grouped(inside + outside) + " distinct cells of maps " + maps + " (" + grouped(inside) +
            " within the grid bounds, the rest far outside) from " + grouped(opened.size()) + " pipelined clients",
        std::move(pipelines), kDeadline);
}

std::unique_ptr<PipelineAttack> layerIdsAttack(const sockaddr_in& server)
{
    WireConnection connection(server);
    if (!MapSurvey::open(connection, WellBehavedClient::kUser, WellBehavedClient::kMap)) {
        throw std::runtime_error("the Santiago map does not open for user 1");
    }
    std::vector<Pipeline> pipelines;
    auto source = std::make_unique<LayerIdSource>(WellBehavedClient::kUser, kIdsThroughLevels, kIdsThroughCells);
    pipelines.emplace_back(std::move(connection), std::move(source), kLevelsInFlight);
    return std::make_unique<PipelineAttack>(
        grouped(kIdsThroughLevels + kIdsThroughCells) + " distinct unknown layer ids on one connection (" +
            grouped(kIdsThroughLevels) + " in access-levels requests of " + grouped(LayerIdSource::kIdsPerMessage) +
            ", " + grouped(kIdsThroughCells) + " in cell requests)",
        std::move(pipelines), kDeadline);
}

} // namespace orbelan::load
