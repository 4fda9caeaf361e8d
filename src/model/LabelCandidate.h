#pragma once

#include "model/ScreenPoint.h"
#include "model/TipoLayer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan {

// A label that may be placed: its text and style, and where its element
// lies on the screen. A line gives all its vertices (several lines, each
// after a point that is not a number), a point or a polygon
// the one pixel its label goes beside or on. Size orders candidates of one
// layer: a line's length or a polygon's area on the screen, larger first.
struct LabelCandidate {
    std::string text;
    bool bold = false;
    std::int32_t color = 0;
    TipoLayer kind = pointlayer;
    std::vector<ScreenPoint> points;
    double size = 0;
    // The layer's position among the map's layers, from 0.
    std::size_t layerOrder = 0;
};

} // namespace orbelan
