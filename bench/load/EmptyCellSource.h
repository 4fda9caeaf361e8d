#pragma once

#include "load/MapSurvey.h"
#include "load/RequestSource.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orbelan::load {

// Distinct cell requests for one map: first every cell within the grid
// bounds of its layers, then a share of cells far outside every grid.
class EmptyCellSource : public RequestSource {
public:
    // No grid reaches this row: a row counts cells of at least 0.0001° from
    // the south pole.
    static constexpr std::int32_t kFarRow = 10'000'000;
    static constexpr std::int32_t kColumns = 1000;

    // Outside cells are numbered from firstOutside; sources with disjoint
    // ranges never ask for the same cell.
    EmptyCellSource(const MapSurvey& map, std::size_t firstOutside, std::size_t outsideCount);

    std::optional<DWBUffer> next() override;

private:
    messages::CellGeometryRequest outsideCell(std::size_t index) const;

    std::vector<messages::CellGeometryRequest> inside_;
    std::vector<std::int32_t> layers_;
    std::size_t nextInside_ = 0;
    std::size_t nextOutside_;
    std::size_t endOutside_;
};

} // namespace orbelan::load
