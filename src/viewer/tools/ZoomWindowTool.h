#pragma once

#include "viewer/MapTool.h"

namespace orbelan {

// Tool 1: a drag draws a rectangle and the view zooms to it.
class ZoomWindowTool : public MapTool {
public:
    static constexpr int kNumber = 1;

    using MapTool::MapTool;

    int number() const override { return kNumber; }
    bool drags() const override { return true; }
    QCursor cursor() const override;
    void press(const MapMouseEvent& event) override { pressed_ = event; }
    void move(const MapMouseEvent& event) override;
    bool release(const MapMouseEvent& event) override;

private:
    MapMouseEvent pressed_;
};

} // namespace orbelan
