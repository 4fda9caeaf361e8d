#pragma once

#include <QCursor>

namespace orbelan::toolcursors {

// The cursors of the tools, by their resource numbers, drawn here rather
// than shipped as images.
enum Resource {
    ZoomWindow = 101,
    Pan = 102,
    Information = 103,
    NewPoint = 104,
    ZoomIn = 105,
    ZoomOut = 106,
    EditInformation = 107,
    Erase = 108,
    Measure = 109,
    NewPolyline = 110,
    NewPolygon = 111,
};

QCursor cursor(Resource resource);

} // namespace orbelan::toolcursors
