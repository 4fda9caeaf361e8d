#pragma once

#include <QPointF>

#include <cstdint>

namespace orbelan {

class MapToolHost;

// The drawn element of the layer under the pixel, within the layer's pick
// tolerance or three pixels, or 0 when there is none, the layer does not
// exist or the pixel is off the globe.
std::int32_t pickElement(MapToolHost& host, std::int32_t layerId, QPointF pixel);

} // namespace orbelan
