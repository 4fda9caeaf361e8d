#include "load/EmptyCellSource.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::load {

EmptyCellSource::EmptyCellSource(const MapSurvey& map, std::size_t firstOutside, std::size_t outsideCount)
    : inside_(map.cells()), nextOutside_(firstOutside), endOutside_(firstOutside + outsideCount)
{
    for (const auto& layer : map.definition().layers) {
        layers_.push_back(layer.id);
    }
}

std::optional<DWBUffer> EmptyCellSource::next()
{
    if (nextInside_ < inside_.size()) {
        return messages::buildMessage(inside_[nextInside_++]);
    }
    if (nextOutside_ < endOutside_) {
        return messages::buildMessage(outsideCell(nextOutside_++));
    }
    return std::nullopt;
}

messages::CellGeometryRequest EmptyCellSource::outsideCell(std::size_t index) const
{
    const std::size_t place = index / layers_.size();
    return {layers_[index % layers_.size()], kFarRow + static_cast<std::int32_t>(place / kColumns),
            static_cast<std::int32_t>(place % kColumns)};
}

} // namespace orbelan::load
