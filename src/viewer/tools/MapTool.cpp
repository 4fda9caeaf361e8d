#include "MapTool.h"

#include "Viewer.h"

namespace orbelan {

MapTool::GeographicDrag MapTool::dragEndingAt(const MapMouseEvent& release) const
{
    GeographicDrag drag;
    const Viewport& view = viewer_.viewport();
    drag.known = view.unproject(viewer_.pressedPoint(), drag.pressedLon, drag.pressedLat) &&
                 view.unproject(release.map, drag.releasedLon, drag.releasedLat);
    return drag;
}

} // namespace orbelan
