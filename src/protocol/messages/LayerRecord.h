#pragma once

#include "protocol/DWBUffer.h"
#include "protocol/messages/FieldRecord.h"
#include "protocol/messages/ThematicClassRecord.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// One layer of the map definition, every field in wire order.
//
// The four grid bounds keep the names the client gives them, and the client
// clamps row indices with the first and third and column indices with the
// second and fourth: minCol and maxCol hold the lowest and highest row,
// minRow and maxRow the lowest and highest column.
struct LayerRecord {
    static constexpr std::size_t kMinimumSize = 82;

    std::string name;
    std::int32_t id = 0;
    std::int16_t type = 0;
    std::int32_t minCol = 0;
    std::int32_t minRow = 0;
    std::int32_t maxCol = -1;
    std::int32_t maxRow = -1;
    float gridDeltaX = 1.0f;
    float gridDeltaY = 1.0f;
    std::int16_t visibility = 1;
    float zoomMin = 0.0f;
    float zoomMax = 1e37f;
    // The default thematic class's style.
    std::int32_t drawColor = 0;
    std::int16_t drawStyle = 0;
    std::int16_t drawWidth = 1;
    std::int32_t fillColor = 0;
    std::int16_t fillStyle = 0;
    std::string labelField;
    float labelZoomMin = 0.0f;
    float labelZoomMax = 1e37f;
    std::int16_t labelVisibility = 0;
    std::int16_t labelBold = 0;
    std::int32_t labelColor = 0;
    std::string thematicField;
    std::int16_t thematicType = 0;
    std::vector<FieldRecord> fields;
    // The classes after the default one, which the client adds itself.
    std::vector<ThematicClassRecord> classes;

    void encode(DWBUffer& message) const;
    static LayerRecord decode(DWBUffer& message);
    bool operator==(const LayerRecord&) const = default;

    // Every field from the name to the thematic type: what a saved map's
    // layer record shares with this one.
    void encodeSettings(DWBUffer& message) const;
    void decodeSettings(DWBUffer& message);

private:
    void encodeGridAndZoom(DWBUffer& message) const;
    void encodeStyleAndLabels(DWBUffer& message) const;
    void decodeGridAndZoom(DWBUffer& message);
    void decodeStyleAndLabels(DWBUffer& message);
};

} // namespace orbelan::messages
