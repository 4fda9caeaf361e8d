#include "ZoomFactorTool.h"

#include "MapToolHost.h"
#include "ToolCursors.h"

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
