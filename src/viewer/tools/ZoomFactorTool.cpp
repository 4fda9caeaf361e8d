#include "viewer/tools/ZoomFactorTool.h"

#include "viewer/MapToolHost.h"
#include "viewer/tools/ToolCursors.h"

namespace orbelan {

QCursor ZoomFactorTool::cursor() const
{
    return toolcursors::cursor(factor_ > 1 ? toolcursors::ZoomIn : toolcursors::ZoomOut);
}

void ZoomFactorTool::click(const MapMouseEvent& event)
{
    host().finishNavigation(kNumber, false);
    host().zoomAbout(factor_, event.map);
}

} // namespace orbelan
