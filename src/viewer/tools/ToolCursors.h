#pragma once

#include <QCursor>

namespace orbelan::toolcursors {

// The cursors of the navigation tools, drawn here rather than shipped as
// images: 101 zoom window, 102 pan, 105 zoom in, 106 zoom out.
enum Resource { ZoomWindow = 101, Pan = 102, ZoomIn = 105, ZoomOut = 106 };

QCursor cursor(Resource resource);

} // namespace orbelan::toolcursors
