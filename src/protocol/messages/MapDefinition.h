#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/LayerRecord.h"

#include <cstdint>
#include <functional>
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

    // The map's own fields, in the order they travel.
    enum class Field { Name, MinX, MinY, MaxX, MaxY, Background, Projection };

    void encode(DWBUffer& message) const;
    static MapDefinition decode(DWBUffer& message);
    // The map's own fields alone (name to projection), which a saved map
    // shares; decodeHeader calls afterField, when given, as each is stored.
    void encodeHeader(DWBUffer& message) const;
    static void decodeHeader(DWBUffer& message, MapDefinition& map, const std::function<void(Field)>& afterField);
    // Reads the message in order: the map's own fields into map, calling
    // afterField as each one is stored, then each layer record, handed to
    // onLayer as soon as it is whole (map.layers stays as it was). A message
    // cut short has handed out everything before the cut.
    static void decodeEach(DWBUffer& message, MapDefinition& map, const std::function<void(Field)>& afterField,
                           const std::function<void(LayerRecord&&)>& onLayer);
    bool operator==(const MapDefinition&) const = default;
};

} // namespace orbelan::messages
