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
    double pressedLon = 0;
    double pressedLat = 0;
    double releasedLon = 0;
    double releasedLat = 0;
    const Viewport& view = viewer().viewport();
    const bool known = view.unproject(viewer().pressedPoint(), pressedLon, pressedLat) &&
                       view.unproject(event.map, releasedLon, releasedLat);
    const bool moved = known && (pressedLon != releasedLon || pressedLat != releasedLat);
    viewer().finishNavigation(Viewer::PanToolNumber, moved);
    if (!moved) {
        viewer().Redraw();
        return false;
    }
    const BoundingBox& box = view.viewBox();
    const double dx = pressedLon - releasedLon;
    const double dy = pressedLat - releasedLat;
    viewer().SetView(box.MinX + dx, box.MinY + dy, box.MaxX + dx, box.MaxY + dy);
    return false;
}

} // namespace orbelan
