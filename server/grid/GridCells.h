#pragma once

#include "grid/Extent.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orbelan::server {

struct CellIndex {
    std::int32_t row = 0;
    std::int32_t column = 0;
    bool operator==(const CellIndex&) const = default;
};

// A layer's grid of cells, as the client computes it: origin (-180, -90),
// column = (longitude + 180) / deltaX and row = (latitude + 90) / deltaY,
// each rounded to the nearest whole number with halves to even. The deltas
// travel as Singles, so they are used at Single precision here too.
class GridCells {
public:
    // Throws std::invalid_argument for a delta that is not positive.
    GridCells(float deltaX, float deltaY);

    CellIndex cellOf(double x, double y) const;
    // Every cell the box touches, rows outer, columns inner; throws
    // std::length_error when that is more than limit cells.
    std::vector<CellIndex> cellsOf(const Extent& box, std::size_t limit) const;

private:
    double deltaX_;
    double deltaY_;
};

} // namespace orbelan::server
