#pragma once

#include "CommandCatalogue.h"
#include "DWBUffer.h"
#include "LayerRecord.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Reply 101: the map's name, extent, background, projection and its layers in
// drawing order.
struct MapDefinition {
    static constexpr CommandCode kCode = CommandCode::MapDefinition;

    std::string name;
    float minX = 0.0f;
    float minY = 0.0f;
    float maxX = 0.0f;
    float maxY = 0.0f;
    std::int32_t background = 0;
    std::int16_t projection = 0;
    std::vector<LayerRecord> layers;

    void encode(DWBUffer& message) const;
    static MapDefinition decode(DWBUffer& message);
    bool operator==(const MapDefinition&) const = default;
};

} // namespace orbelan::messages
