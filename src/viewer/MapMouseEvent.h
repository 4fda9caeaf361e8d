#pragma once

#include "view/Viewport.h"

#include <QPointF>

namespace orbelan {

// A mouse event as map tools see it: the button and shift state as hosts
// number them, the pixel, and the point of the map plane under it.
struct MapMouseEvent {
    int button = 0;
    int shift = 0;
    QPointF pixel;
    MapPoint map;
};

} // namespace orbelan
