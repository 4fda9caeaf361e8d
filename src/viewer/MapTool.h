#pragma once

#include "viewer/MapMouseEvent.h"

#include <QCursor>

namespace orbelan {

class MapToolHost;

// One way of interpreting the mouse. The ToolController keeps the tool
// numbers that hosts observe and the state the tools share (previous tool,
// dragging); a tool decides what its drag shows and what its release or
// click does. Handlers a tool does not override ignore their input.
class MapTool {
public:
    explicit MapTool(MapToolHost& host) : host_(host) {}
    virtual ~MapTool() = default;

    MapTool(const MapTool&) = delete;
    MapTool& operator=(const MapTool&) = delete;

    // The number hosts see while this tool is current.
    virtual int number() const = 0;
    // Whether a press starts a drag that move() follows.
    virtual bool drags() const { return false; }
    virtual QCursor cursor() const { return Qt::ArrowCursor; }

    // The tool becomes current, or stops being current.
    virtual void activate() {}
    virtual void deactivate() {}

    virtual void press(const MapMouseEvent&) {}
    virtual void move(const MapMouseEvent&) {}
    // True when the release completed the tool's action, so that hosts hear
    // of it with MouseUp.
    virtual bool release(const MapMouseEvent&) { return true; }
    virtual void click(const MapMouseEvent&) {}
    virtual void doubleClick(const MapMouseEvent&) {}
    // True when the tool used the key.
    virtual bool key(int /*keyCode*/, int /*shift*/) { return false; }

protected:
    MapToolHost& host() const { return host_; }

private:
    MapToolHost& host_;
};

} // namespace orbelan
