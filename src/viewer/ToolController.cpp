#include "viewer/ToolController.h"

#include "viewer/MapTool.h"
#include "viewer/tools/PanTool.h"
#include "viewer/tools/ZoomFactorTool.h"
#include "viewer/tools/ZoomWindowTool.h"

namespace orbelan {

namespace {

constexpr int kLeftButton = 1;

template <typename Tool>
void add(std::map<int, std::unique_ptr<MapTool>>& tools, MapToolHost& host)
{
    tools[Tool::kNumber] = std::make_unique<Tool>(host);
}

} // namespace

ToolController::ToolController(MapToolHost& host)
{
    add<ZoomWindowTool>(tools_, host);
    add<ZoomFactorTool>(tools_, host);
    add<PanTool>(tools_, host);
    zoomFactor_ = static_cast<ZoomFactorTool*>(tools_.at(ZoomFactorTool::kNumber).get());
}

ToolController::~ToolController() = default;

MapTool* ToolController::tool() const
{
    const auto found = tools_.find(current_);
    return found == tools_.end() ? nullptr : found->second.get();
}

QCursor ToolController::cursor() const
{
    const MapTool* current = tool();
    return current ? current->cursor() : QCursor(Qt::ArrowCursor);
}

void ToolController::makeCurrent(int number)
{
    if (number == current_) {
        return;
    }
    if (MapTool* leaving = tool()) {
        leaving->deactivate();
    }
    current_ = number;
    if (MapTool* coming = tool()) {
        coming->activate();
    }
}

void ToolController::arm(int number)
{
    if (current_ != kNoTool) {
        previous_ = current_;
    }
    makeCurrent(number);
}

void ToolController::finishNavigation(int number, bool completed)
{
    makeCurrent(multiStep_ ? previous_ : kNoTool);
    if (completed) {
        previous_ = number;
    }
    dragging_ = false;
}

void ToolController::reset()
{
    makeCurrent(kNoTool);
    previous_ = kNoTool;
    multiStep_ = false;
    dragging_ = false;
}

void ToolController::drop()
{
    makeCurrent(kNoTool);
}

void ToolController::press(const MapMouseEvent& event)
{
    MapTool* current = tool();
    dragging_ = current && current->drags();
    pressedButton_ = event.button;
    if (current) {
        current->press(event);
    }
}

void ToolController::move(const MapMouseEvent& event)
{
    if (MapTool* current = tool(); current && dragging_) {
        current->move(event);
    }
}

bool ToolController::release(const MapMouseEvent& event)
{
    MapTool* current = tool();
    const bool completed = !current || current->release(event);
    dragging_ = false;
    return completed;
}

bool ToolController::click(const MapMouseEvent& event)
{
    if (pressedButton_ != kLeftButton) {
        return false;
    }
    if (MapTool* clicked = tool()) {
        clicked->click(event);
    }
    return true;
}

void ToolController::doubleClick(const MapMouseEvent& event)
{
    if (MapTool* current = tool()) {
        current->doubleClick(event);
    }
}

bool ToolController::key(int keyCode, int shift)
{
    MapTool* current = tool();
    return current && current->key(keyCode, shift);
}

} // namespace orbelan
