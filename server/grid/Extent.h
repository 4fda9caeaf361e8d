#pragma once

#include "protocol/messages/CellElement.h"

#include <vector>

namespace orbelan::server {

// The bounding box of a set of vertices, in degrees.
struct Extent {
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;

    // The box of at least one point.
    static Extent of(const std::vector<messages::WirePoint>& points);
    void unite(const Extent& other);
};

} // namespace orbelan::server
