#include "viewer/tools/ElementPick.h"

#include "model/Layers.h"
#include "viewer/GeoPixels.h"
#include "viewer/MapToolHost.h"

namespace orbelan {

std::int32_t pickElement(MapToolHost& host, std::int32_t layerId, QPointF pixel)
{
    const Viewport& view = host.viewport();
    layer* target = host.layers().Find(layerId);
    const auto at = geographicOf(view, view.toMap(pixel.x(), pixel.y()));
    return target && at ? target->SelectByPoint(at->X, at->Y, pickReach(view, pixel)) : 0;
}

} // namespace orbelan
