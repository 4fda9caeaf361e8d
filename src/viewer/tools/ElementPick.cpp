#include "viewer/tools/ElementPick.h"

#include "model/Layers.h"
#include "viewer/GeoPixels.h"
#include "viewer/MapToolHost.h"

namespace orbelan {

namespace {

// Hands the layer, the point in degrees and the reach to pick, when the
// layer exists and the pixel is on the globe.
template <typename Pick>
void pickAt(MapToolHost& host, std::int32_t layerId, QPointF pixel, const Pick& pick)
{
    const Viewport& view = host.viewport();
    layer* target = host.layers().Find(layerId);
    if (const auto at = geographicOf(view, view.toMap(pixel.x(), pixel.y())); target && at) {
        pick(*target, *at, pickReach(view, pixel));
    }
}

} // namespace

std::int32_t pickElement(MapToolHost& host, std::int32_t layerId, QPointF pixel)
{
    std::int32_t id = 0;
    pickAt(host, layerId, pixel,
           [&id](layer& target, const Vertex& at, double reach) { id = target.SelectByPoint(at.X, at.Y, reach); });
    return id;
}

std::vector<std::int32_t> pickElements(MapToolHost& host, std::int32_t layerId, QPointF pixel)
{
    std::vector<std::int32_t> ids;
    pickAt(host, layerId, pixel, [&ids](layer& target, const Vertex& at, double reach) {
        target.SelectByPointMany(at.X, at.Y, ids, reach);
    });
    return ids;
}

} // namespace orbelan
