#pragma once

#include "MapTool.h"

namespace orbelan {

// Tool 3: a drag moves a picture of the map; the release moves the view.
class PanTool : public MapTool {
public:
    using MapTool::MapTool;

    bool drags() const override { return true; }
    QCursor cursor() const override;
    void move(const MapMouseEvent& event) override;
    bool release(const MapMouseEvent& event) override;
};

} // namespace orbelan
