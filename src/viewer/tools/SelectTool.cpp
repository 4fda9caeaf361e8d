#include "viewer/tools/SelectTool.h"

#include "model/Layers.h"
#include "viewer/MapToolHost.h"
#include "viewer/ToolMenus.h"
#include "viewer/ToolState.h"
#include "viewer/tools/ElementPick.h"

namespace orbelan {

namespace {

constexpr int kIndividual = 1;
constexpr int kDrawnPolygon = 2;
constexpr int kLayerPolygon = 3;
constexpr std::size_t kPolygonVertices = 3;

} // namespace

bool SelectTool::drags() const
{
    return host().menus().selectionMethod() == kDrawnPolygon;
}

// While a polygon is drawn the end menu closes it; otherwise the selection
// menu offers the methods, and the first right click chooses picking one at
// a time.
PopupMenu SelectTool::menu()
{
    ToolMenus& menus = host().menus();
    const int method = menus.selectionMethod();
    if (method == kDrawnPolygon || method == kLayerPolygon) {
        return PopupMenu::End;
    }
    if (method == 0) {
        menus.setSelectionMethod(kIndividual);
    }
    return PopupMenu::Select;
}

void SelectTool::click(const MapMouseEvent& event)
{
    const int method = host().menus().selectionMethod();
    if (method == kDrawnPolygon) {
        PointEntryTool::click(event);
    } else if (method == kIndividual) {
        if (const std::int32_t id = pickElement(host(), state().targetLayer, event.pixel); id > 0) {
            collect({id});
        }
        host().redrawMap();
    }
}

// A polygon of fewer than three vertices collects nothing.
void SelectTool::closeLine()
{
    std::vector<Vertex>& vertices = state().vertices;
    layer* target = host().layers().Find(state().targetLayer);
    if (target && vertices.size() >= kPolygonVertices) {
        std::vector<double> x;
        std::vector<double> y;
        for (const Vertex& vertex : vertices) {
            x.push_back(vertex.X);
            y.push_back(vertex.Y);
        }
        collect(target->SelectElementsInPolygon(x, y, host().menus().wholeElementInside()));
    }
    vertices.clear();
    host().menus().setSelectionMethod(kIndividual);
    host().followPointer(std::nullopt, false);
    host().redrawMap();
}

void SelectTool::endSelection()
{
    const std::int32_t layerId = state().targetLayer;
    const std::vector<std::int32_t> ids = state().picked.ids();
    host().menus().stopRemoving();
    host().resetTool();
    host().selectionSet(layerId, ids);
}

void SelectTool::collect(const std::vector<std::int32_t>& ids)
{
    const bool removing = host().menus().removing();
    for (const std::int32_t id : ids) {
        if (removing) {
            state().picked.remove(id);
        } else {
            state().picked.add(id);
        }
    }
}

} // namespace orbelan
