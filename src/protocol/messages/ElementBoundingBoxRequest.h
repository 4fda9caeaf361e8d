#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Request 15: the bounding box of one element of a layer.
struct ElementBoundingBoxRequest {
    static constexpr CommandCode kCode = CommandCode::ElementBoundingBoxRequest;

    std::int32_t layer = 0;
    std::int32_t element = 0;

    void encode(DWBUffer& message) const;
    static ElementBoundingBoxRequest decode(DWBUffer& message);
    bool operator==(const ElementBoundingBoxRequest&) const = default;
};

} // namespace orbelan::messages
