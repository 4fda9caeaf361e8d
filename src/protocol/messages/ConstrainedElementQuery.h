#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Request 14: of the candidate elements of a layer (none listed means the
// whole layer), those that meet every constraint, answered with reply 114.
struct ConstrainedElementQuery {
    static constexpr CommandCode kCode = CommandCode::ConstrainedElementQuery;

    struct Constraint {
        std::string field;
        std::int16_t fieldType = 0;
        // A condition operator code (protocol/messages/Condition.h).
        std::uint8_t op = 0;
        std::string value1;
        std::string value2;
        bool operator==(const Constraint&) const = default;
    };

    std::int32_t layer = 0;
    std::vector<std::int32_t> candidates;
    std::vector<Constraint> constraints;

    void encode(DWBUffer& message) const;
    static ConstrainedElementQuery decode(DWBUffer& message);
    bool operator==(const ConstrainedElementQuery&) const = default;
};

} // namespace orbelan::messages
