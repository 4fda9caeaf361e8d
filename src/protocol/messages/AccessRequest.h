#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Request 10: may this user open this map? The first request of a connection.
struct AccessRequest {
    static constexpr CommandCode kCode = CommandCode::AccessRequest;

    std::int32_t user = 0;
    std::int32_t map = 0;

    void encode(DWBUffer& message) const;
    static AccessRequest decode(DWBUffer& message);
    bool operator==(const AccessRequest&) const = default;
};

} // namespace orbelan::messages
