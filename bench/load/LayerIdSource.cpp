#include "load/LayerIdSource.h"

#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MessageIO.h"

#include <algorithm>

namespace orbelan::load {

LayerIdSource::LayerIdSource(std::int32_t user, std::size_t throughLevels, std::size_t throughCells)
    : user_(user), levelsLeft_(throughLevels), cellsLeft_(throughCells)
{
}

std::optional<DWBUffer> LayerIdSource::next()
{
    if (levelsLeft_ > 0) {
        return levelsRequest();
    }
    if (cellsLeft_ > 0) {
        --cellsLeft_;
        return messages::buildMessage(messages::CellGeometryRequest{nextId_++, 0, 0});
    }
    return std::nullopt;
}

DWBUffer LayerIdSource::levelsRequest()
{
    messages::LayerAccessLevelsRequest request{user_, {}};
    const std::size_t count = std::min(levelsLeft_, kIdsPerMessage);
    for (std::size_t i = 0; i < count; ++i) {
        request.layers.push_back(nextId_++);
    }
    levelsLeft_ -= count;
    return messages::buildMessage(request);
}

} // namespace orbelan::load
