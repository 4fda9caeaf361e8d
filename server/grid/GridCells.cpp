#include "grid/GridCells.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace orbelan::server {

namespace {

// Rounds to the nearest whole number, halves to even (the default rounding
// mode), and refuses what a Long cannot hold.
std::int32_t roundedIndex(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        throw std::out_of_range("no grid cell for the coordinate " + std::to_string(value));
    }
    return static_cast<std::int32_t>(rounded);
}

} // namespace

GridCells::GridCells(float deltaX, float deltaY)
    : deltaX_(deltaX),
      deltaY_(deltaY)
{
    if (!(deltaX > 0.0f && deltaY > 0.0f)) {
        throw std::invalid_argument("grid cells need a positive width and height");
    }
}

CellIndex GridCells::cellOf(double x, double y) const
{
    return {roundedIndex((y + 90.0) / deltaY_), roundedIndex((x + 180.0) / deltaX_)};
}

std::vector<CellIndex> GridCells::cellsOf(const Extent& box, std::size_t limit) const
{
    const CellIndex first = cellOf(box.minX, box.minY);
    const CellIndex last = cellOf(box.maxX, box.maxY);
    const auto rows = static_cast<std::uint64_t>(std::int64_t{last.row} - first.row + 1);
    const auto columns = static_cast<std::uint64_t>(std::int64_t{last.column} - first.column + 1);
    if (rows > limit || columns > limit || rows * columns > limit) {
        throw std::length_error("an element spanning " + std::to_string(rows * columns) +
                                " grid cells; at most " + std::to_string(limit) + " are allowed");
    }
    std::vector<CellIndex> cells;
    cells.reserve(static_cast<std::size_t>(rows * columns));
    for (std::int64_t row = first.row; row <= last.row; ++row) {
        for (std::int64_t column = first.column; column <= last.column; ++column) {
            cells.push_back({static_cast<std::int32_t>(row), static_cast<std::int32_t>(column)});
        }
    }
    return cells;
}

} // namespace orbelan::server
