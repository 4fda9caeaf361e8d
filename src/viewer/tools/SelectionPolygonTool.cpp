#include "viewer/tools/SelectionPolygonTool.h"

#include "viewer/MapToolHost.h"

namespace orbelan {

void SelectionPolygonTool::closeLine()
{
    host().followPointer(std::nullopt, false);
    host().resumeMultipleSelection();
}

} // namespace orbelan
