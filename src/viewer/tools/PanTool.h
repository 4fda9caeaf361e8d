#pragma once

#include "viewer/MapTool.h"

namespace orbelan {

// Tool 3: a drag moves a picture of the map; the release moves the view.
class PanTool : public MapTool {
public:
    static constexpr int kNumber = 3;

    using MapTool::MapTool;

    int number() const override { return kNumber; }
    bool drags() const override { return true; }
    QCursor cursor() const override;
    void press(const MapMouseEvent& event) override { pressed_ = event; }
    void move(const MapMouseEvent& event) override;
    bool release(const MapMouseEvent& event) override;
    // A drag that Escape interrupts leaves the map where it was.
    void deactivate() override;

private:
    MapMouseEvent pressed_;
};

} // namespace orbelan
