#pragma once

#include "grid/Extent.h"
#include "protocol/messages/FieldRecord.h"
#include "storage/StoredElement.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::server {

// A vector layer read from a GDAL/OGR source, in longitude/latitude, before
// it is written: one element per single geometry (multi-geometries split).
struct ImportedLayer {
    std::string name;
    // 1 points, 2 lines, 4 polygons.
    std::int16_t type = 0;
    std::vector<messages::FieldRecord> fields;
    std::vector<StoredElement> elements;
    Extent extent;
    std::size_t vertexCount = 0;
    // Features without a geometry of the layer's kind, and polygon holes,
    // which an element cannot hold.
    std::size_t skippedFeatures = 0;
    std::size_t droppedHoles = 0;
    // Polygon rings cut at the antimeridian, and the features they belong to.
    std::size_t cutRings = 0;
    std::size_t cutFeatures = 0;
};

} // namespace orbelan::server
