#include "ZoomWindowTool.h"

#include "ToolCursors.h"
#include "Viewer.h"

namespace orbelan {

QCursor ZoomWindowTool::cursor() const
{
    return toolcursors::cursor(toolcursors::ZoomWindow);
}

void ZoomWindowTool::move(const MapMouseEvent& event)
{
    viewer().showRubberBand(QRectF(viewer().pressedPixel(), event.pixel).normalized().toRect());
}

// Zooms only to a window with both a width and a height; a click without a
// drag just redraws.
bool ZoomWindowTool::release(const MapMouseEvent& event)
{
    viewer().hideRubberBand();
    const GeographicDrag drag = dragEndingAt(event);
    const bool window = drag.known && drag.pressedLon != drag.releasedLon && drag.pressedLat != drag.releasedLat;
    viewer().finishNavigation(Viewer::ZoomWindowToolNumber, window);
    if (!window) {
        viewer().Redraw();
        return false;
    }
    viewer().SetView(drag.pressedLon, drag.pressedLat, drag.releasedLon, drag.releasedLat);
    return true;
}

} // namespace orbelan
