#pragma once

#include "viewer/MapTool.h"

namespace orbelan {

// Tool 20: an armed click picks the element of the target layer under it
// for the directions.
class DirectionsTool : public MapTool {
public:
    static constexpr int kNumber = 20;

    using MapTool::MapTool;

    int number() const override { return kNumber; }
    bool armsFirst() const override { return true; }
    void click(const MapMouseEvent& event) override;
};

} // namespace orbelan
