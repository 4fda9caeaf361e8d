#include "viewer/tools/MeasureTool.h"

#include "viewer/GeoPixels.h"
#include "viewer/MapToolHost.h"
#include "viewer/ToolState.h"
#include "viewer/tools/ToolCursors.h"

#include <cmath>
#include <vector>

namespace orbelan {

namespace {

// Hundredths are cut, not rounded; the number is written as briefly as it
// reads back exactly (7, 12.34).
QString metres(double length)
{
    constexpr int kSignificantDigits = 15;
    return QString::number(std::floor(length * 100) / 100, 'g', kSignificantDigits) + QStringLiteral(" m.");
}

} // namespace

QCursor MeasureTool::cursor() const
{
    return toolcursors::cursor(toolcursors::Measure);
}

void MeasureTool::deactivate()
{
    host().showToolStatus({});
}

// A point the projection cannot place adds nothing to the length.
double MeasureTool::length(const Viewport& view, std::span<const Vertex> points)
{
    double total = 0;
    std::optional<MapPoint> last;
    for (const Vertex& point : points) {
        const auto projected = projectedOf(view, point);
        if (projected && last) {
            total += std::hypot(projected->x - last->x, projected->y - last->y);
        }
        last = projected ? projected : last;
    }
    return total;
}

QString MeasureTool::totalText(double length)
{
    return QStringLiteral("Total distance: ") + metres(length);
}

void MeasureTool::closeLine()
{
    const QString total = totalText(length(host().viewport(), state().vertices));
    host().messageBox(total, MessageButtons::OK, MessageIcon::None, QStringLiteral("Orbelan Viewer"));
    host().resetTool();
}

// While the mouse moves, the length runs on to the pointer.
void MeasureTool::pointsChanged(const std::optional<Vertex>& pointer)
{
    PointEntryTool::pointsChanged(pointer);
    std::vector<Vertex> line = state().vertices;
    if (pointer && !line.empty()) {
        line.push_back(*pointer);
    }
    const QString distance = QStringLiteral("Distance: ") + metres(length(host().viewport(), line));
    host().showToolStatus(line.empty() ? QString() : distance);
}

} // namespace orbelan
