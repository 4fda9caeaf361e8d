#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Request 1: the definition of one map.
struct MapDefinitionRequest {
    static constexpr CommandCode kCode = CommandCode::MapDefinitionRequest;

    std::int32_t map = 0;

    void encode(DWBUffer& message) const;
    static MapDefinitionRequest decode(DWBUffer& message);
    bool operator==(const MapDefinitionRequest&) const = default;
};

} // namespace orbelan::messages
