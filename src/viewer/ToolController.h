#pragma once

#include "viewer/MapMouseEvent.h"
#include "viewer/PopupMenu.h"
#include "viewer/ToolState.h"

#include <QCursor>

#include <map>
#include <memory>

namespace orbelan {

class MapTool;
class MapToolHost;
class ZoomFactorTool;

// The mouse tool machinery: which tool is current (the number hosts observe,
// 0 for none), the tool it interrupted, whether a drag is under way, and the
// dispatch of mouse and key input to the current tool.
class ToolController {
public:
    static constexpr int kNoTool = 0;

    explicit ToolController(MapToolHost& host);
    ~ToolController();

    ToolController(const ToolController&) = delete;
    ToolController& operator=(const ToolController&) = delete;

    int current() const { return state_.current; }
    int previous() const { return state_.previous; }
    const ToolState& state() const { return state_; }
    // The current tool's object; null for no tool.
    MapTool* tool() const;
    // The pointer the current tool shows.
    QCursor cursor() const;
    ZoomFactorTool& zoomFactorTool() { return *zoomFactor_; }
    // An element's geometry is being edited.
    bool editing() const;

    // Makes a tool current for a new operation on a layer: it is armed at
    // once, and a multi-step operation starts where it spans clicks.
    void select(int number, std::int32_t targetLayer);
    // Makes a zoom or pan tool current; the one it interrupts is kept to
    // resume it afterwards.
    void arm(int number);
    // See MapToolHost::finishNavigation.
    void finishNavigation(int number, bool completed);
    // No tool, no previous tool, no multi-step operation, no drag, no
    // entered points, nothing picked.
    void reset();
    // No tool, keeping the previous one (a control freed from a stuck load).
    void drop();
    void stopDragging() { state_.dragging = false; }

    void press(const MapMouseEvent& event);
    void move(const MapMouseEvent& event);
    // The current tool's answer to a release; true when hosts hear of it
    // with MouseUp.
    bool release(const MapMouseEvent& event);
    // A release of the button that was pressed last: a left one is a click,
    // handled by the tool that is current after the release. True for a
    // left click.
    bool click(const MapMouseEvent& event);
    // The menu a right click offers now; None after a left press.
    PopupMenu rightClickMenu();
    void doubleClick(const MapMouseEvent& event);
    // True when the current tool used the key.
    bool key(int keyCode, int shift);
    void closeLine();
    void eraseLastPoint();
    void endSelection();
    // Nothing picked, or no point entered, with the tool going on.
    void clearPicked() { state_.picked.clear(); }
    void clearEnteredPoints() { state_.vertices.clear(); }

private:
    void makeCurrent(int number);

    MapToolHost& host_;
    std::map<int, std::unique_ptr<MapTool>> tools_;
    ZoomFactorTool* zoomFactor_ = nullptr;
    ToolState state_;
};

} // namespace orbelan
