#pragma once

#include <QString>

#include <cstdint>

namespace orbelan::server {

// What to import and where: one layer of a source into one map.
struct ImportOptions {
    QString source;
    // The source's layer; its first one when empty.
    QString sourceLayer;
    std::int32_t map = 0;
    // The layer's id; the next free one when 0.
    std::int32_t layerId = 0;
    // The layer's name; the source layer's when empty.
    QString layerName;
    QString labelField;
    // The labels show while the view is at most this high: kilometres, or
    // thousandths of a degree on a latitude/longitude map.
    float labelZoomMax = 1e37f;
    QString themeField;
    // The platform's fill style of the layer's polygons (0 solid, 1 none).
    std::int16_t fillStyle = 0;
    // The width of the layer's lines in pixels; 0 keeps the importer's own.
    std::int16_t lineWidth = 0;
    // Used when the map does not exist yet: its name (the layer's when
    // empty) and projection code.
    QString mapName;
    std::int16_t projection = 0;
};

} // namespace orbelan::server
