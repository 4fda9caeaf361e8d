#include "load/LargestCell.h"

#include "load/MapSurvey.h"
#include "load/WellBehavedClient.h"
#include "load/WireConnection.h"

#include <stdexcept>
#include <vector>

namespace orbelan::load {

namespace {

void keepLargest(WireConnection& connection, const std::vector<messages::CellGeometryRequest>& cells,
                 LargestCell& largest)
{
    for (const auto& cell : cells) {
        connection.sendMessage(cell);
        const std::size_t size = connection.receive().size();
        if (size > largest.replyBytes) {
            largest.cell = cell;
            largest.replyBytes = size;
        }
    }
}

} // namespace

LargestCell LargestCell::find(const sockaddr_in& server)
{
    WireConnection connection(server);
    LargestCell largest;
    const auto world = MapSurvey::open(connection, WellBehavedClient::kUser, kWorldMap);
    if (world && world->layer(kCountriesLayer) != nullptr) {
        largest.map = kWorldMap;
        keepLargest(connection, MapSurvey::cellsOf(*world->layer(kCountriesLayer)), largest);
        return largest;
    }
    const auto santiago = MapSurvey::open(connection, WellBehavedClient::kUser, WellBehavedClient::kMap);
    if (!santiago) {
        throw std::runtime_error("neither the World nor the Santiago map opens for user 1");
    }
    largest.map = WellBehavedClient::kMap;
    largest.note = "the store has no World map (3) with layer 301: the largest Santiago cell stands in";
    keepLargest(connection, santiago->cells(), largest);
    return largest;
}

} // namespace orbelan::load
