#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// How request 6 asks for the statistics of a field, and how reply 106 says
// what it holds.
namespace statisticsmethod {
inline constexpr std::int16_t kDistinctValues = 1;
inline constexpr std::int16_t kMinimumAndMaximum = 2;
} // namespace statisticsmethod

// Request 6: what a thematic classification needs from the whole layer, the
// distinct values of one field or its minimum and maximum.
struct FieldStatisticsRequest {
    static constexpr CommandCode kCode = CommandCode::FieldStatisticsRequest;

    std::int32_t layer = 0;
    std::string field;
    std::int16_t method = 0;

    void encode(DWBUffer& message) const
    {
        message.PutLong(layer);
        message.PutString(field);
        message.PutInteger(method);
    }
    static FieldStatisticsRequest decode(DWBUffer& message)
    {
        FieldStatisticsRequest request;
        request.layer = message.GetLong();
        request.field = message.GetString();
        request.method = message.GetInteger();
        return request;
    }
    bool operator==(const FieldStatisticsRequest&) const = default;
};

} // namespace orbelan::messages
