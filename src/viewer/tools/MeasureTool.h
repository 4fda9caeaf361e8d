#pragma once

#include "viewer/tools/PointEntryTool.h"

#include <span>

namespace orbelan {

class Viewport;

// Tool 8: the entered line's length in the map's plane, shown while it grows
// and told when the line is finished.
class MeasureTool : public PointEntryTool {
public:
    static constexpr int kNumber = 8;

    using PointEntryTool::PointEntryTool;

    int number() const override { return kNumber; }
    QCursor cursor() const override;
    void deactivate() override;
    void closeLine() override;

    // The length of the line through the points, projected, in the units of
    // the map's plane (metres, or degrees on a latitude/longitude map).
    static double length(const Viewport& view, std::span<const Vertex> points);
    // "Total distance: " and the length cut to hundredths, then " m.".
    static QString totalText(double length);

protected:
    void pointsChanged(const std::optional<Vertex>& pointer) override;
};

} // namespace orbelan
