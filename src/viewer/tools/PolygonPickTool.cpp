#include "viewer/tools/PolygonPickTool.h"

#include "viewer/MapToolHost.h"
#include "viewer/ToolState.h"
#include "viewer/tools/ElementPick.h"

namespace orbelan {

void PolygonPickTool::click(const MapMouseEvent& event)
{
    if (const std::int32_t id = pickElement(host(), state().targetLayer, event.pixel); id > 0) {
        state().picked.add(id);
    }
    host().resumeMultipleSelection();
}

} // namespace orbelan
