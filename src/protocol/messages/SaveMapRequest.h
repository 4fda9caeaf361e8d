#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/SavedLayerRecord.h"

#include <cstdint>
#include <vector>

namespace orbelan::messages {

// Request 240: the whole look of the map shown, to be stored under a new
// name for the user: the map it was made from, the map's own fields as the
// map definition has them (name, extent, background, projection), then each
// layer's settings in drawing order.
struct SaveMapRequest {
    static constexpr CommandCode kCode = CommandCode::SaveMap;

    std::int32_t user = 0;
    std::int32_t map = 0;
    // The new map's name and the map's own fields; its layers are not used.
    MapDefinition definition;
    std::vector<SavedLayerRecord> layers;

    void encode(DWBUffer& message) const;
    static SaveMapRequest decode(DWBUffer& message);
    bool operator==(const SaveMapRequest&) const = default;
};

} // namespace orbelan::messages
