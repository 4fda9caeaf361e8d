#pragma once

#include "view/Viewport.h"

#include <cstdint>

namespace orbelan {

class MapToolHost;

// The drawn element of the layer under a point of the map's plane, or 0
// when there is none, the layer does not exist or the point is off the globe.
std::int32_t pickElement(MapToolHost& host, std::int32_t layerId, MapPoint at);

} // namespace orbelan
