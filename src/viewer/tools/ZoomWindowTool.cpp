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
    double pressedLon = 0;
    double pressedLat = 0;
    double releasedLon = 0;
    double releasedLat = 0;
    const Viewport& view = viewer().viewport();
    const bool known = view.unproject(viewer().pressedPoint(), pressedLon, pressedLat) &&
                       view.unproject(event.map, releasedLon, releasedLat);
    const bool window = known && pressedLon != releasedLon && pressedLat != releasedLat;
    viewer().finishNavigation(Viewer::ZoomWindowToolNumber, window);
    if (!window) {
        viewer().Redraw();
        return false;
    }
    viewer().SetView(pressedLon, pressedLat, releasedLon, releasedLat);
    return true;
}

} // namespace orbelan
