#pragma once

#include "MapTool.h"

namespace orbelan {

// Tool 1: a drag draws a rectangle and the view zooms to it.
class ZoomWindowTool : public MapTool {
public:
    using MapTool::MapTool;

    bool drags() const override { return true; }
    QCursor cursor() const override;
    void move(const MapMouseEvent& event) override;
    bool release(const MapMouseEvent& event) override;
};

} // namespace orbelan
