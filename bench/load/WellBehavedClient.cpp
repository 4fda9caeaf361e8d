#include "load/WellBehavedClient.h"

#include "protocol/messages/CellGeometry.h"

#include <algorithm>
#include <stdexcept>

namespace orbelan::load {

namespace {

using Clock = std::chrono::steady_clock;

double percentile(std::vector<double>& values, double fraction)
{
    if (values.empty()) {
        return 0.0;
    }
    const auto index = static_cast<std::size_t>(fraction * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(index), values.end());
    return values[index];
}

std::vector<messages::CellGeometryRequest> santiagoCells(WireConnection& connection)
{
    const auto map = MapSurvey::open(connection, WellBehavedClient::kUser, WellBehavedClient::kMap);
    if (!map) {
        throw std::runtime_error("the server refuses the Santiago map (1) to user 1; build the demo store");
    }
    auto cells = map->cells();
    if (cells.empty()) {
        throw std::runtime_error("the Santiago map has no cells to ask for");
    }
    return cells;
}

} // namespace

WellBehavedClient::WellBehavedClient(const sockaddr_in& server)
    : connection_(server), cells_(santiagoCells(connection_))
{
    // One pass first, so that no run measures the server building replies
    // it has not kept yet.
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        askNextCell();
    }
}

ClientFigures WellBehavedClient::run(std::chrono::duration<double> length)
{
    ClientFigures figures;
    figures.failure = failure_;
    std::vector<double> latencies;
    const auto start = Clock::now();
    const auto end = start + std::chrono::duration_cast<Clock::duration>(length);
    while (failure_.empty() && Clock::now() < end) {
        try {
            latencies.push_back(askNextCell());
        } catch (const std::exception& error) {
            failure_ = figures.failure = error.what();
        }
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    figures.requests = latencies.size();
    figures.requestsPerSecond = static_cast<double>(latencies.size()) / seconds;
    figures.p99Milliseconds = percentile(latencies, 0.99);
    return figures;
}

double WellBehavedClient::askNextCell()
{
    const auto& cell = cells_[next_];
    next_ = (next_ + 1) % cells_.size();
    const auto start = Clock::now();
    connection_.sendMessage(cell);
    DWBUffer reply(connection_.receive());
    if (messages::readHeader(reply) != messages::CellGeometry::kCode) {
        throw std::runtime_error("a cell request got another reply than a cell");
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

} // namespace orbelan::load
