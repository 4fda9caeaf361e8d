#include "viewer/tools/ZoomWindowTool.h"

#include "viewer/MapToolHost.h"
#include "viewer/tools/ToolCursors.h"

namespace orbelan {

QCursor ZoomWindowTool::cursor() const
{
    return toolcursors::cursor(toolcursors::ZoomWindow);
}

void ZoomWindowTool::move(const MapMouseEvent& event)
{
    host().showRubberBand(QRectF(pressed_.pixel, event.pixel).normalized().toRect());
}

// Zooms only to a window with both a width and a height; a click without a
// drag just redraws.
bool ZoomWindowTool::release(const MapMouseEvent& event)
{
    host().hideRubberBand();
    BoundingBox window;
    const bool completed = host().viewport().geographicWindow(pressed_.map, event.map, window);
    host().finishNavigation(kNumber, completed);
    if (!completed) {
        host().redrawMap();
        return false;
    }
    host().showBox(window);
    return true;
}

} // namespace orbelan
