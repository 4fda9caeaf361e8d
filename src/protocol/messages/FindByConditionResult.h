#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/Condition.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Reply 113: the condition echoed, then each matching element with its value
// of the condition's field, in the wire form of the echoed field type.
struct FindByConditionResult {
    static constexpr CommandCode kCode = CommandCode::FindByConditionResult;

    struct Found {
        std::int32_t id = 0;
        std::string value;
        bool operator==(const Found&) const = default;
    };

    Condition condition;
    std::vector<Found> elements;

    void encode(DWBUffer& message) const;
    static FindByConditionResult decode(DWBUffer& message);
    bool operator==(const FindByConditionResult&) const = default;
};

} // namespace orbelan::messages
