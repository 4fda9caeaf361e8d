#include "viewer/SmartEndPoint.h"

#include <array>
#include <cmath>

namespace orbelan {

std::optional<MapPoint> SmartEndPointCompute(MapPoint a, MapPoint b, MapPoint reference, double longitudinal,
                                             double transversal)
{
    const double length = std::hypot(a.x - b.x, a.y - b.y);
    if (length == 0) {
        return std::nullopt;
    }
    const MapPoint along{(a.x - b.x) / length, (a.y - b.y) / length};
    const MapPoint across{(a.y - b.y) / length, (b.x - a.x) / length};
    const auto candidate = [&](double side, double direction) {
        return MapPoint{b.x + side * transversal * across.x + direction * longitudinal * along.x,
                        b.y + side * transversal * across.y + direction * longitudinal * along.y};
    };
    const std::array candidates{candidate(1, 1), candidate(1, -1), candidate(-1, 1), candidate(-1, -1)};
    MapPoint best = candidates.front();
    double bestDistance = std::hypot(best.x - reference.x, best.y - reference.y);
    for (const MapPoint& point : candidates) {
        const double distance = std::hypot(point.x - reference.x, point.y - reference.y);
        if (distance < bestDistance) {
            best = point;
            bestDistance = distance;
        }
    }
    return best;
}

} // namespace orbelan
