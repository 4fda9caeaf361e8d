#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Reply 110: 0 grants access to the map, any other value refuses it.
struct AccessAnswer {
    static constexpr CommandCode kCode = CommandCode::AccessAnswer;
    static constexpr std::int16_t kGranted = 0;
    static constexpr std::int16_t kRefused = 1;

    std::int16_t result = kRefused;

    bool granted() const { return result == kGranted; }
    void encode(DWBUffer& message) const;
    static AccessAnswer decode(DWBUffer& message);
    bool operator==(const AccessAnswer&) const = default;
};

} // namespace orbelan::messages
