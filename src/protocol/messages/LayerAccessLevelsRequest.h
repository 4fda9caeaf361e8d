#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <vector>

namespace orbelan::messages {

// Request 11: the user's access level for each listed layer.
struct LayerAccessLevelsRequest {
    static constexpr CommandCode kCode = CommandCode::LayerAccessLevelsRequest;

    std::int32_t user = 0;
    std::vector<std::int32_t> layers;

    void encode(DWBUffer& message) const;
    static LayerAccessLevelsRequest decode(DWBUffer& message);
    bool operator==(const LayerAccessLevelsRequest&) const = default;
};

} // namespace orbelan::messages
