#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace orbelan {

class layer;

// The grid cells of a layer that a group of elements covers, as two
// parallel index lists: first indices in one, second in the other.
struct CellLists {
    std::vector<std::int32_t> first;
    std::vector<std::int32_t> second;
};

// Every cell of the rectangle between the cells of the two corners of the
// union of the elements' boxes, once each, the first index running in the
// outer loop. Elements that are not loaded add nothing; none loaded gives
// no cell. std::length_error when the rectangle holds more cells than an
// update may list, std::out_of_range when the layer's grid cannot place a
// corner.
CellLists unionBoxCells(const layer& target, std::span<const std::int32_t> elementIds);

} // namespace orbelan
