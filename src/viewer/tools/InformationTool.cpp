#include "viewer/tools/InformationTool.h"

#include "viewer/MapToolHost.h"
#include "viewer/ToolMenus.h"
#include "viewer/ToolState.h"
#include "viewer/tools/ElementPick.h"
#include "viewer/tools/ToolCursors.h"

namespace orbelan {

InformationTool::InformationTool(MapToolHost& host, ToolState& state, bool forEditing)
    : MapTool(host, state),
      forEditing_(forEditing)
{
}

QCursor InformationTool::cursor() const
{
    return toolcursors::cursor(forEditing_ ? toolcursors::EditInformation : toolcursors::Information);
}

void InformationTool::click(const MapMouseEvent& event)
{
    for (const std::int32_t id : pickElements(host(), state().targetLayer, event.pixel)) {
        if (id > 0) {
            state().picked.add(id);
        }
    }
    endSelection();
}

void InformationTool::endSelection()
{
    const std::int32_t layerId = state().targetLayer;
    const std::vector<std::int32_t> ids = state().picked.ids();
    host().menus().stopRemoving();
    host().resetTool();
    for (const std::int32_t id : ids) {
        host().requestInformation(layerId, id, forEditing_);
    }
}

} // namespace orbelan
