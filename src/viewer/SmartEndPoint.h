#pragma once

#include "view/Viewport.h"

#include <optional>

namespace orbelan {

// The point at `longitudinal` along the segment from its first vertex b
// towards its second a, and `transversal` across it, all in the map's
// plane. Of the four points that the two directions allow, the one nearest
// to `reference` is chosen; of equal ones the first in the order: along and
// right, back and right, along and left, back and left (looking from b
// towards a). Nothing for a segment of length 0.
std::optional<MapPoint> SmartEndPointCompute(MapPoint a, MapPoint b, MapPoint reference, double longitudinal,
                                             double transversal);

} // namespace orbelan
