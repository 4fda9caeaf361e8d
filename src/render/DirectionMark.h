#pragma once

#include "model/ScreenPoint.h"

#include <QPointF>

#include <cstdint>
#include <optional>

namespace orbelan {

// The arrowhead that shows which way a line runs, for the segment between
// two screen points: its tip lies 30 pixels from the segment's middle along
// the segment (against it for direction -1), its base 7.5 pixels to either
// side of the middle. The angle is taken with Y growing upwards, as on the
// map; a segment without length points up the map. No mark for direction 0
// or for a point that is not a number.
struct DirectionMark {
    static constexpr double kLength = 30;
    static constexpr double kHalfBase = 7.5;

    QPointF tip;
    QPointF base1;
    QPointF base2;

    static std::optional<DirectionMark> of(ScreenPoint from, ScreenPoint to, std::int16_t direction);
};

} // namespace orbelan
