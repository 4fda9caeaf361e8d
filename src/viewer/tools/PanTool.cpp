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

void PanTool::deactivate()
{
    host().setPanOffset({});
}

// Moves the view by the distance between press and release in the map's plane.
bool PanTool::release(const MapMouseEvent& event)
{
    host().setPanOffset({});
    const bool moved = host().dragView(pressed_.map, event.map);
    host().finishNavigation(kNumber, moved);
    if (!moved) {
        host().redrawMap();
    }
    return false;
}

} // namespace orbelan
