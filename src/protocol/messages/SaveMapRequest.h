#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/SavedLayerRecord.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Request 240: the whole look of the map shown, to be stored under a new
// name for the user: the map it was made from, the name, extent, background,
// projection and each layer's settings in drawing order.
struct SaveMapRequest {
    static constexpr CommandCode kCode = CommandCode::SaveMap;

    std::int32_t user = 0;
    std::int32_t map = 0;
    std::string name;
    float minX = 0.0f;
    float minY = 0.0f;
    float maxX = 0.0f;
    float maxY = 0.0f;
    std::int32_t background = 0;
    std::int16_t projection = 0;
    std::vector<SavedLayerRecord> layers;

    void encode(DWBUffer& message) const;
    static SaveMapRequest decode(DWBUffer& message);
    bool operator==(const SaveMapRequest&) const = default;
};

} // namespace orbelan::messages
