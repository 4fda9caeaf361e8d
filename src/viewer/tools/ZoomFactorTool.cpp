#include "ZoomFactorTool.h"

#include "ToolCursors.h"
#include "Viewer.h"

namespace orbelan {

QCursor ZoomFactorTool::cursor() const
{
    return toolcursors::cursor(viewer().zoomFactor() > 1 ? toolcursors::ZoomIn : toolcursors::ZoomOut);
}

void ZoomFactorTool::click(const MapMouseEvent& event)
{
    viewer().finishNavigation(Viewer::ZoomFactorToolNumber, false);
    viewer().zoomAbout(viewer().zoomFactor(), event.map);
}

} // namespace orbelan
