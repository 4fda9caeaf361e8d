#include "viewer/tools/PointEntryTool.h"

#include "viewer/GeoPixels.h"
#include "viewer/MapToolHost.h"
#include "viewer/ToolState.h"

namespace orbelan {

namespace {

constexpr int kBackspace = 8;

} // namespace

void PointEntryTool::armed()
{
    host().showEnteredPoints();
}

void PointEntryTool::click(const MapMouseEvent& event)
{
    if (const auto point = host().resolveInputPoint(event.map)) {
        state().vertices.push_back(*point);
        pointsChanged(std::nullopt);
    }
}

void PointEntryTool::move(const MapMouseEvent& event)
{
    host().followPointer(event.pixel, closes());
    pointsChanged(geographicOf(host().viewport(), event.map));
}

bool PointEntryTool::key(int keyCode, int)
{
    if (keyCode != kBackspace) {
        return false;
    }
    eraseLastPoint();
    return true;
}

void PointEntryTool::eraseLastPoint()
{
    if (!state().vertices.empty()) {
        state().vertices.pop_back();
        pointsChanged(std::nullopt);
    }
}

void PointEntryTool::pointsChanged(const std::optional<Vertex>&)
{
    host().showEnteredPoints();
}

} // namespace orbelan
