#pragma once

#include "model/Vertex.h"
#include "viewer/PickCollection.h"

#include <cstdint>
#include <vector>

namespace orbelan {

// What the mouse tools share, and what hosts observe of them.
struct ToolState {
    // The tool numbers hosts see; 0 for none.
    int current = 0;
    // The tool to return to after a zoom or pan; also the mark that the
    // current tool is armed: while it differs from the current tool, the
    // next click only arms the tool.
    int previous = 0;
    // An operation that outlives one click is under way: a finished zoom or
    // pan returns to the previous tool instead of to none.
    bool multiStep = false;
    // The button of the last press: 1 left, 2 right.
    int pressedButton = 0;
    // The tool's feedback follows the mouse.
    bool dragging = false;
    // The layer the current tool works on.
    std::int32_t targetLayer = 0;
    // The points entered so far, in degrees.
    std::vector<Vertex> vertices;
    PickCollection picked;
};

} // namespace orbelan
