#pragma once

#include "model/GridCell.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace orbelan {

// An ordered list of grid cells, as a layer keeps the cells it has asked the
// server for. Appending makes no duplicate check (callers test first), but
// the test is a hash lookup rather than a scan, since a session can request
// many thousands of cells and every view change tests each cell in view.
class CellList {
public:
    void Append(GridCell cell);
    bool Contains(GridCell cell) const;
    // Replaces the first occurrence by the last cell and shortens the list by
    // one; false when the cell is not listed.
    bool RemoveFirst(GridCell cell);
    void Clear();

    std::span<const GridCell> cells() const { return cells_; }

private:
    std::vector<GridCell> cells_;
    std::unordered_map<std::uint64_t, std::size_t> occurrences_;
};

} // namespace orbelan
