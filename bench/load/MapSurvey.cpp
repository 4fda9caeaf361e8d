#include "load/MapSurvey.h"

#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MapDefinitionRequest.h"

#include <utility>

namespace orbelan::load {

using namespace messages;

MapSurvey::MapSurvey(std::int32_t map, MapDefinition definition) : map_(map), definition_(std::move(definition))
{
}

std::optional<MapSurvey> MapSurvey::open(WireConnection& connection, std::int32_t user, std::int32_t map)
{
    if (!connection.ask<AccessAnswer>(AccessRequest{user, map}).granted()) {
        return std::nullopt;
    }
    MapDefinition definition = connection.ask<MapDefinition>(MapDefinitionRequest{map});
    if (definition.layers.empty()) {
        return std::nullopt;
    }
    LayerAccessLevelsRequest levels{user, {}};
    for (const LayerRecord& layer : definition.layers) {
        levels.layers.push_back(layer.id);
    }
    connection.ask<LayerAccessLevels>(levels);
    return MapSurvey(map, std::move(definition));
}

const LayerRecord* MapSurvey::layer(std::int32_t id) const
{
    for (const LayerRecord& record : definition_.layers) {
        if (record.id == id) {
            return &record;
        }
    }
    return nullptr;
}

std::vector<CellGeometryRequest> MapSurvey::cells() const
{
    std::vector<CellGeometryRequest> all;
    for (const LayerRecord& layer : definition_.layers) {
        const auto own = cellsOf(layer);
        all.insert(all.end(), own.begin(), own.end());
    }
    return all;
}

// The first and third bound limit the rows, the second and fourth the
// columns, whatever the record's field names say.
std::vector<CellGeometryRequest> MapSurvey::cellsOf(const LayerRecord& layer)
{
    std::vector<CellGeometryRequest> cells;
    for (std::int32_t row = layer.minCol; row <= layer.maxCol; ++row) {
        for (std::int32_t column = layer.minRow; column <= layer.maxRow; ++column) {
            cells.push_back({layer.id, row, column});
        }
    }
    return cells;
}

} // namespace orbelan::load
