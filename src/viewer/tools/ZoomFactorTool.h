#pragma once

#include "MapTool.h"

namespace orbelan {

// Tool 2: a click zooms by the chosen factor about the clicked point.
class ZoomFactorTool : public MapTool {
public:
    using MapTool::MapTool;

    QCursor cursor() const override;
    void click(const MapMouseEvent& event) override;
};

} // namespace orbelan
