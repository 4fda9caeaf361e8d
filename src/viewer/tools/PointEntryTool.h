#pragma once

#include "model/Vertex.h"
#include "viewer/MapTool.h"

#include <optional>

namespace orbelan {

// A tool that enters a line point by point: each armed click adds the point
// that the chosen point-entry method makes of it, a rubber line follows the
// mouse from the last point, Backspace or "Delete Last Point" takes the last
// point back, and a right click offers the end menu.
class PointEntryTool : public MapTool {
public:
    using MapTool::MapTool;

    bool drags() const override { return true; }
    bool armsFirst() const override { return true; }
    PopupMenu menu() override { return PopupMenu::End; }
    void armed() override;
    void click(const MapMouseEvent& event) override;
    void move(const MapMouseEvent& event) override;
    bool key(int keyCode, int shift) override;
    void eraseLastPoint() override;

protected:
    // The rubber lines close the entered points into a polygon.
    virtual bool closes() const { return false; }
    // The entered points changed, or the pointer moved to `pointer` (in degrees).
    virtual void pointsChanged(const std::optional<Vertex>& pointer);
};

} // namespace orbelan
