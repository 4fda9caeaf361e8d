#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Reply 106: the request echoed, then for the distinct values (method 1)
// their count as an Integer and the values, or for the minimum and maximum
// (method 2) those two texts. Any other method carries nothing more.
struct FieldStatistics {
    static constexpr CommandCode kCode = CommandCode::FieldStatistics;

    std::int32_t layer = 0;
    std::string field;
    std::int16_t method = 0;
    // The distinct values in the order sent, or the minimum and the maximum.
    std::vector<std::string> values;

    // A minimum and maximum are the first two values, empty texts for any
    // missing (a field the layer lacks).
    void encode(DWBUffer& message) const;
    static FieldStatistics decode(DWBUffer& message);
    bool operator==(const FieldStatistics&) const = default;
};

} // namespace orbelan::messages
