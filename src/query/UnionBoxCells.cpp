#include "query/UnionBoxCells.h"

#include "model/layer.h"

#include <algorithm>
#include <stdexcept>

namespace orbelan {

namespace {

// A box this many cells wide covers far more than a screen of map: larger
// is a grid or an element gone wrong, not a group of elements.
constexpr std::int64_t kMaximumCells = 1'000'000;

} // namespace

CellLists unionBoxCells(const layer& target, std::span<const std::int32_t> elementIds)
{
    BoundingBox box;
    bool any = false;
    for (const std::int32_t id : elementIds) {
        if (const Entidad* element = target.Entidades.Find(id)) {
            box.Union(element->bb.MinX, element->bb.MinY, element->bb.MaxX, element->bb.MaxY);
            any = true;
        }
    }
    CellLists cells;
    if (!any)
        return cells;
    const GridCell low = target.GetPointCell(box.MinX, box.MinY);
    const GridCell high = target.GetPointCell(box.MaxX, box.MaxY);
    const auto [firstLow, firstHigh] = std::minmax(low.row, high.row);
    const auto [secondLow, secondHigh] = std::minmax(low.column, high.column);
    const std::int64_t count = (std::int64_t{firstHigh} - firstLow + 1) * (std::int64_t{secondHigh} - secondLow + 1);
    if (count > kMaximumCells)
        throw std::length_error("the elements' box covers " + std::to_string(count) + " grid cells");
    cells.first.reserve(static_cast<std::size_t>(count));
    cells.second.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = firstLow; i <= firstHigh; ++i) {
        for (std::int64_t j = secondLow; j <= secondHigh; ++j) {
            cells.first.push_back(static_cast<std::int32_t>(i));
            cells.second.push_back(static_cast<std::int32_t>(j));
        }
    }
    return cells;
}

} // namespace orbelan
