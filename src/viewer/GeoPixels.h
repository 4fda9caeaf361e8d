#pragma once

#include "model/Vertex.h"
#include "view/Viewport.h"

#include <QPointF>

#include <optional>

namespace orbelan {

// The pixel of a point in degrees; nothing when the projection cannot place it.
std::optional<QPointF> pixelOf(const Viewport& view, const Vertex& point);
// The degrees of a point of the map's plane; nothing off the globe.
std::optional<Vertex> geographicOf(const Viewport& view, MapPoint point);
// How far in degrees a pick at the pixel reaches: three pixels, so that an
// element stays within reach however far out the view is; 0 off the globe.
double pickReach(const Viewport& view, QPointF pixel);
// The point of the map's plane of a point in degrees.
std::optional<MapPoint> projectedOf(const Viewport& view, const Vertex& point);

} // namespace orbelan
