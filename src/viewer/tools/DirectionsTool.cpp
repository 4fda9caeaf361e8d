#include "viewer/tools/DirectionsTool.h"

#include "model/Layers.h"
#include "viewer/GeoPixels.h"
#include "viewer/MapToolHost.h"
#include "viewer/ToolState.h"

namespace orbelan {

void DirectionsTool::click(const MapMouseEvent& event)
{
    layer* target = host().layers().Find(state().targetLayer);
    const auto at = geographicOf(host().viewport(), event.map);
    if (target && at) {
        if (const std::int32_t id = target->SelectByPoint(at->X, at->Y); id > 0) {
            state().picked.add(id);
        }
    }
    host().redrawMap();
}

} // namespace orbelan
