#pragma once

#include "model/ScreenPoint.h"

#include <QPointF>

#include <cstdint>
#include <optional>

namespace orbelan {

// The arrowhead that shows which way a line runs, for the segment between
// two screen points: its tip lies the mark's length in pixels from the
// segment's middle along the segment (against it for direction -1), its base
// a quarter of that length to either side of the middle. The angle is taken
// with Y growing upwards, as on the map. No mark for direction 0, for a point
// that is not a number, or for a segment shorter on the screen than the mark.
struct DirectionMark {
    // The mark's size on the map, in map units (metres on a
    // latitude/longitude map): 30 long, 15 across its base.
    static constexpr double kLength = 30;

    QPointF tip;
    QPointF base1;
    QPointF base2;

    static std::optional<DirectionMark> of(ScreenPoint from, ScreenPoint to, std::int16_t direction, double length);
};

} // namespace orbelan
