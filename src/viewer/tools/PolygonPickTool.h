#pragma once

#include "viewer/MapTool.h"

namespace orbelan {

// Tool 12: an armed click picks the polygon element of the source layer
// under it, and the multiple selection goes on with it.
class PolygonPickTool : public MapTool {
public:
    static constexpr int kNumber = 12;

    using MapTool::MapTool;

    int number() const override { return kNumber; }
    bool armsFirst() const override { return true; }
    void click(const MapMouseEvent& event) override;
};

} // namespace orbelan
