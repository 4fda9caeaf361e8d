#pragma once

#include <QPointF>

#include <cstdint>
#include <vector>

namespace orbelan {

class MapToolHost;

// The drawn element of the layer under the pixel, within the layer's pick
// tolerance or three pixels, or 0 when there is none, the layer does not
// exist or the pixel is off the globe.
std::int32_t pickElement(MapToolHost& host, std::int32_t layerId, QPointF pixel);
// Every drawn element of the layer under the pixel: the points within the
// layer's tolerance for many or three pixels, the line or polygon a single
// pick finds. Empty when there is none, as for a single pick.
std::vector<std::int32_t> pickElements(MapToolHost& host, std::int32_t layerId, QPointF pixel);

} // namespace orbelan
