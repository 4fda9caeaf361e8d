#pragma once

#include "load/RequestSource.h"

#include <cstddef>
#include <cstdint>

namespace orbelan::load {

// Layer ids no map has, each asked for once: many to an access-levels
// request, then one per cell request.
class LayerIdSource : public RequestSource {
public:
    static constexpr std::int32_t kFirstId = 1'000'000;
    // Below the 32,767 an Integer count allows; a message of about 120 KB.
    static constexpr std::size_t kIdsPerMessage = 30'000;

    LayerIdSource(std::int32_t user, std::size_t throughLevels, std::size_t throughCells);

    std::optional<DWBUffer> next() override;

private:
    DWBUffer levelsRequest();

    std::int32_t user_;
    std::int32_t nextId_ = kFirstId;
    std::size_t levelsLeft_;
    std::size_t cellsLeft_;
};

} // namespace orbelan::load
