#include "viewer/ToolController.h"

#include "viewer/MapTool.h"
#include "viewer/MapToolHost.h"
#include "viewer/tools/DirectionsTool.h"
#include "viewer/tools/InformationTool.h"
#include "viewer/tools/MeasureTool.h"
#include "viewer/tools/PanTool.h"
#include "viewer/tools/PolygonPickTool.h"
#include "viewer/tools/SelectTool.h"
#include "viewer/tools/SelectionPolygonTool.h"
#include "viewer/tools/ZoomFactorTool.h"
#include "viewer/tools/ZoomWindowTool.h"

namespace orbelan {

namespace {

constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
// Information, element entry, measuring, erasing, selection and the choice
// of an element to edit span several clicks.
constexpr int kFirstMultiStepTool = 4;
constexpr int kLastMultiStepTool = 14;
// The vertex editing of an element and its operations.
constexpr int kFirstEditingTool = 15;
constexpr int kLastEditingTool = 19;

template <typename Tool>
void add(std::map<int, std::unique_ptr<MapTool>>& tools, MapToolHost& host, ToolState& state)
{
    tools[Tool::kNumber] = std::make_unique<Tool>(host, state);
}

} // namespace

ToolController::ToolController(MapToolHost& host)
    : host_(host)
{
    add<ZoomWindowTool>(tools_, host, state_);
    add<ZoomFactorTool>(tools_, host, state_);
    add<PanTool>(tools_, host, state_);
    add<MeasureTool>(tools_, host, state_);
    add<SelectTool>(tools_, host, state_);
    add<DirectionsTool>(tools_, host, state_);
    tools_[InformationTool::kNumber] = std::make_unique<InformationTool>(host, state_, false);
    tools_[InformationTool::kEditingNumber] = std::make_unique<InformationTool>(host, state_, true);
    add<PolygonPickTool>(tools_, host, state_);
    add<SelectionPolygonTool>(tools_, host, state_);
    zoomFactor_ = static_cast<ZoomFactorTool*>(tools_.at(ZoomFactorTool::kNumber).get());
}

ToolController::~ToolController() = default;

MapTool* ToolController::tool() const
{
    const auto found = tools_.find(state_.current);
    return found == tools_.end() ? nullptr : found->second.get();
}

QCursor ToolController::cursor() const
{
    const MapTool* current = tool();
    return current ? current->cursor() : QCursor(Qt::ArrowCursor);
}

bool ToolController::editing() const
{
    return state_.current >= kFirstEditingTool && state_.current <= kLastEditingTool;
}

void ToolController::makeCurrent(int number)
{
    if (number == state_.current) {
        return;
    }
    if (MapTool* leaving = tool()) {
        leaving->deactivate();
    }
    state_.current = number;
    if (MapTool* coming = tool()) {
        coming->activate();
    }
    host_.toolChanged(number);
}

void ToolController::select(int number, std::int32_t targetLayer)
{
    makeCurrent(number);
    state_.previous = number;
    state_.multiStep = number >= kFirstMultiStepTool && number <= kLastMultiStepTool;
    state_.targetLayer = targetLayer;
}

void ToolController::arm(int number)
{
    if (state_.current != kNoTool) {
        state_.previous = state_.current;
    }
    makeCurrent(number);
}

void ToolController::finishNavigation(int number, bool completed)
{
    makeCurrent(state_.multiStep ? state_.previous : kNoTool);
    if (completed) {
        state_.previous = number;
    }
    state_.dragging = false;
}

void ToolController::reset()
{
    makeCurrent(kNoTool);
    state_.previous = kNoTool;
    state_.multiStep = false;
    state_.dragging = false;
    state_.vertices.clear();
    state_.picked.clear();
}

void ToolController::drop()
{
    makeCurrent(kNoTool);
}

void ToolController::press(const MapMouseEvent& event)
{
    MapTool* current = tool();
    state_.dragging = current && current->drags();
    state_.pressedButton = event.button;
    if (current) {
        current->press(event);
    }
}

// The feedback of a point entry goes on following the mouse between clicks:
// only the end of a zoom or pan stops the drag.
void ToolController::move(const MapMouseEvent& event)
{
    if (MapTool* current = tool(); current && state_.dragging) {
        current->move(event);
    }
}

bool ToolController::release(const MapMouseEvent& event)
{
    MapTool* current = tool();
    return !current || current->release(event);
}

bool ToolController::click(const MapMouseEvent& event)
{
    // A press the control ignored (Shift and the right button) leaves the
    // last pressed button as it was; the released one tells it apart.
    if (state_.pressedButton != kLeftButton || event.button != kLeftButton) {
        return false;
    }
    MapTool* clicked = tool();
    if (clicked && clicked->armsFirst() && state_.previous != state_.current) {
        state_.previous = state_.current;
        host_.selectToolCursor();
        clicked->armed();
    } else if (clicked) {
        clicked->click(event);
    }
    return true;
}

PopupMenu ToolController::rightClickMenu()
{
    MapTool* current = tool();
    return current && state_.pressedButton == kRightButton ? current->menu() : PopupMenu::None;
}

// The double click takes the place of the second press, and the release
// after it is no click.
void ToolController::doubleClick(const MapMouseEvent& event)
{
    state_.pressedButton = 0;
    if (MapTool* current = tool()) {
        current->doubleClick(event);
    }
}

bool ToolController::key(int keyCode, int shift)
{
    MapTool* current = tool();
    return current && current->key(keyCode, shift);
}

void ToolController::closeLine()
{
    if (MapTool* current = tool()) {
        current->closeLine();
    }
}

void ToolController::eraseLastPoint()
{
    if (MapTool* current = tool()) {
        current->eraseLastPoint();
    }
}

void ToolController::endSelection()
{
    if (MapTool* current = tool()) {
        current->endSelection();
    }
}

} // namespace orbelan
