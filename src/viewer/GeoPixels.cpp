#include "viewer/GeoPixels.h"

#include <algorithm>
#include <cmath>

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

double pickReach(const Viewport& view, QPointF pixel)
{
    constexpr double kPickPixels = 3;
    const auto at = [&view](QPointF point) { return geographicOf(view, view.toMap(point.x(), point.y())); };
    const auto centre = at(pixel);
    double reach = 0;
    for (const QPointF step : {QPointF(kPickPixels, 0), QPointF(0, kPickPixels)}) {
        if (const auto beside = at(pixel + step); centre && beside) {
            reach = std::max(reach, std::hypot(beside->X - centre->X, beside->Y - centre->Y));
        }
    }
    return reach;
}

std::optional<MapPoint> projectedOf(const Viewport& view, const Vertex& point)
{
    MapPoint projected;
    return view.project(point.X, point.Y, projected) ? std::optional(projected) : std::nullopt;
}

} // namespace orbelan
