#include "PanTool.h"

#include "ToolCursors.h"
#include "Viewer.h"

namespace orbelan {

QCursor PanTool::cursor() const
{
    return toolcursors::cursor(toolcursors::Pan);
}

void PanTool::move(const MapMouseEvent& event)
{
    viewer().setPanOffset((event.pixel - viewer().pressedPixel()).toPoint());
}

// Shifts the view box by the geographic distance between press and release.
bool PanTool::release(const MapMouseEvent& event)
{
    viewer().setPanOffset({});
    const GeographicDrag drag = dragEndingAt(event);
    const bool moved = drag.known && (drag.pressedLon != drag.releasedLon || drag.pressedLat != drag.releasedLat);
    viewer().finishNavigation(Viewer::PanToolNumber, moved);
    if (!moved) {
        viewer().Redraw();
        return false;
    }
    const BoundingBox& box = viewer().viewport().viewBox();
    const double dx = drag.pressedLon - drag.releasedLon;
    const double dy = drag.pressedLat - drag.releasedLat;
    viewer().SetView(box.MinX + dx, box.MinY + dy, box.MaxX + dx, box.MaxY + dy);
    return false;
}

} // namespace orbelan
