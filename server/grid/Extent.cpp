#include "grid/Extent.h"

#include <algorithm>
#include <stdexcept>

namespace orbelan::server {

Extent Extent::of(const std::vector<messages::WirePoint>& points)
{
    if (points.empty()) {
        throw std::invalid_argument("an extent needs at least one point");
    }
    Extent box{points.front().x, points.front().y, points.front().x, points.front().y};
    for (const messages::WirePoint& point : points) {
        box.unite({point.x, point.y, point.x, point.y});
    }
    return box;
}

void Extent::unite(const Extent& other)
{
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
}

} // namespace orbelan::server
