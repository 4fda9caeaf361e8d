#include "model/CellList.h"

#include <algorithm>

namespace orbelan {

void CellList::Append(GridCell cell)
{
    cells_.push_back(cell);
    ++occurrences_[cell.packed()];
}

bool CellList::Contains(GridCell cell) const
{
    return occurrences_.contains(cell.packed());
}

bool CellList::RemoveFirst(GridCell cell)
{
    const auto found = std::find(cells_.begin(), cells_.end(), cell);
    if (found == cells_.end()) {
        return false;
    }
    *found = cells_.back();
    cells_.pop_back();
    const auto occurrence = occurrences_.find(cell.packed());
    if (--occurrence->second == 0) {
        occurrences_.erase(occurrence);
    }
    return true;
}

void CellList::Clear()
{
    cells_.clear();
    occurrences_.clear();
}

} // namespace orbelan
