#include "viewer/tools/PanTool.h"

#include "viewer/MapToolHost.h"
#include "viewer/tools/ToolCursors.h"

namespace orbelan {

QCursor PanTool::cursor() const
{
    return toolcursors::cursor(toolcursors::Pan);
}

void PanTool::move(const MapMouseEvent& event)
{
    host().setPanOffset((event.pixel - pressed_.pixel).toPoint());
}

// Shifts the view box by the geographic distance between press and release.
bool PanTool::release(const MapMouseEvent& event)
{
    host().setPanOffset({});
    BoundingBox moved;
    const bool completed = host().viewport().movedViewBox(pressed_.map, event.map, moved);
    host().finishNavigation(kNumber, completed);
    if (completed) {
        host().showBox(moved);
    } else {
        host().redrawMap();
    }
    return false;
}

} // namespace orbelan
