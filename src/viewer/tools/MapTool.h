#pragma once

#include "MapMouseEvent.h"

#include <QCursor>

namespace orbelan {

class Viewer;

// One way of interpreting the mouse. The Viewer keeps the tool numbers that
// hosts observe and the shared state (pressed point, previous tool,
// dragging); a tool decides what its drag shows and what its release or
// click does.
class MapTool {
public:
    explicit MapTool(Viewer& viewer) : viewer_(viewer) {}
    virtual ~MapTool() = default;

    MapTool(const MapTool&) = delete;
    MapTool& operator=(const MapTool&) = delete;

    // Whether a press starts a drag that move() follows.
    virtual bool drags() const { return false; }
    virtual QCursor cursor() const { return Qt::ArrowCursor; }
    virtual void move(const MapMouseEvent&) {}
    // True when the release completed the tool's action, so that hosts hear
    // of it with MouseUp.
    virtual bool release(const MapMouseEvent&) { return true; }
    virtual void click(const MapMouseEvent&) {}

protected:
    // Where a drag began and ended, in degrees.
    struct GeographicDrag {
        bool known = false; // false when either end has no geographic position
        double pressedLon = 0;
        double pressedLat = 0;
        double releasedLon = 0;
        double releasedLat = 0;
    };

    Viewer& viewer() const { return viewer_; }
    GeographicDrag dragEndingAt(const MapMouseEvent& release) const;

private:
    Viewer& viewer_;
};

} // namespace orbelan
