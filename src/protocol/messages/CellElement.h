#pragma once

#include "protocol/DWBUffer.h"

#include <cstdint>
#include <vector>

namespace orbelan::messages {

// A vertex in geographic degrees: x the longitude, y the latitude.
struct WirePoint {
    double x = 0.0;
    double y = 0.0;
    bool operator==(const WirePoint&) const = default;
};

// One element of a cell reply: its id and its vertices, always held as
// absolute Doubles; how they travel is decided by the reply that carries it.
struct CellElement {
    static constexpr std::size_t kMinimumSize = 8;

    std::int32_t id = 0;
    std::vector<WirePoint> points;

    // Relative: each coordinate as a Single offset from the base point.
    void encode(DWBUffer& message, bool relative, const WirePoint& base) const;
    static CellElement decode(DWBUffer& message, bool relative, const WirePoint& base);
    bool operator==(const CellElement&) const = default;
};

} // namespace orbelan::messages
