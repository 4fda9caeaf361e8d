#include "viewer/GeoPixels.h"

namespace orbelan {

std::optional<QPointF> pixelOf(const Viewport& view, const Vertex& point)
{
    const auto projected = projectedOf(view, point);
    if (!projected) {
        return std::nullopt;
    }
    return QPointF(view.WorldToScreenX(projected->x), view.WorldToScreenY(projected->y));
}

std::optional<Vertex> geographicOf(const Viewport& view, MapPoint point)
{
    Vertex geographic;
    return view.unproject(point, geographic.X, geographic.Y) ? std::optional(geographic) : std::nullopt;
}

std::optional<MapPoint> projectedOf(const Viewport& view, const Vertex& point)
{
    MapPoint projected;
    return view.project(point.X, point.Y, projected) ? std::optional(projected) : std::nullopt;
}

} // namespace orbelan
