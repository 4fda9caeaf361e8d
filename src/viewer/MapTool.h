#pragma once

#include "viewer/MapMouseEvent.h"
#include "viewer/PopupMenu.h"

#include <QCursor>

namespace orbelan {

class MapToolHost;
struct ToolState;

// One way of interpreting the mouse. The ToolController keeps the tool
// numbers that hosts observe and the state the tools share (ToolState); a
// tool decides what its drag shows and what its release or click does.
// Handlers a tool does not override ignore their input.
class MapTool {
public:
    MapTool(MapToolHost& host, ToolState& state) : host_(host), state_(state) {}
    virtual ~MapTool() = default;

    MapTool(const MapTool&) = delete;
    MapTool& operator=(const MapTool&) = delete;

    // The number hosts see while this tool is current.
    virtual int number() const = 0;
    // Whether a press starts a drag that move() follows.
    virtual bool drags() const { return false; }
    // Whether a click must find the tool armed (the previous tool equal to
    // it) before it acts; a click that finds it unarmed only arms it. This
    // absorbs the click that ends the zoom or pan drag that interrupted it.
    virtual bool armsFirst() const { return false; }
    virtual QCursor cursor() const { return Qt::ArrowCursor; }
    // The menu a right click offers; choosing it may change the tool's state.
    virtual PopupMenu menu() { return PopupMenu::None; }

    // The tool becomes current, or stops being current.
    virtual void activate() {}
    virtual void deactivate() {}
    // A click armed the tool.
    virtual void armed() {}

    virtual void press(const MapMouseEvent&) {}
    virtual void move(const MapMouseEvent&) {}
    // True when the release completed the tool's action, so that hosts hear
    // of it with MouseUp.
    virtual bool release(const MapMouseEvent&) { return true; }
    virtual void click(const MapMouseEvent&) {}
    virtual void doubleClick(const MapMouseEvent&) {}
    // True when the tool used the key.
    virtual bool key(int /*keyCode*/, int /*shift*/) { return false; }

    // The entered line is finished ("Resume" of the end menu), or loses its
    // last point.
    virtual void closeLine() {}
    virtual void eraseLastPoint() {}
    // The picked elements are what the operation wanted ("Resume" of the
    // selection menu).
    virtual void endSelection() {}

protected:
    MapToolHost& host() const { return host_; }
    ToolState& state() const { return state_; }

private:
    MapToolHost& host_;
    ToolState& state_;
};

} // namespace orbelan
