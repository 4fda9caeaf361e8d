#include "viewer/tools/ElementPick.h"

#include "model/Layers.h"
#include "viewer/GeoPixels.h"
#include "viewer/MapToolHost.h"

namespace orbelan {

std::int32_t pickElement(MapToolHost& host, std::int32_t layerId, MapPoint at)
{
    layer* target = host.layers().Find(layerId);
    const auto geographic = geographicOf(host.viewport(), at);
    return target && geographic ? target->SelectByPoint(geographic->X, geographic->Y) : 0;
}

} // namespace orbelan
