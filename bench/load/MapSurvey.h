#pragma once

#include "load/WireConnection.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/messages/MapDefinition.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace orbelan::load {

// What a client learns when it opens a map: the definition, and from the
// grid bounds of its layers the cells there are to ask for.
class MapSurvey {
public:
    // Passes the access request, then asks for the map definition and the
    // access levels of its layers, as a viewer does. Empty when the user may
    // not open the map or the map has no layers.
    static std::optional<MapSurvey> open(WireConnection& connection, std::int32_t user, std::int32_t map);

    std::int32_t map() const { return map_; }
    const messages::MapDefinition& definition() const { return definition_; }
    const messages::LayerRecord* layer(std::int32_t id) const;
    // Every cell within the grid bounds of every layer.
    std::vector<messages::CellGeometryRequest> cells() const;
    static std::vector<messages::CellGeometryRequest> cellsOf(const messages::LayerRecord& layer);

private:
    MapSurvey(std::int32_t map, messages::MapDefinition definition);

    std::int32_t map_;
    messages::MapDefinition definition_;
};

} // namespace orbelan::load
