#pragma once

#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// How a field's value is compared with a condition's values. The codes travel
// as one byte in requests 13 and 14.
namespace conditionop {
inline constexpr std::uint8_t kEqual = 1;
inline constexpr std::uint8_t kStartingWith = 2;
inline constexpr std::uint8_t kEndingWith = 3;
inline constexpr std::uint8_t kContaining = 4;
inline constexpr std::uint8_t kDifferent = 5;
inline constexpr std::uint8_t kLess = 6;
inline constexpr std::uint8_t kLessOrEqual = 7;
inline constexpr std::uint8_t kGreater = 8;
inline constexpr std::uint8_t kGreaterOrEqual = 9;
inline constexpr std::uint8_t kBetween = 10;
// Never sent: the client's own lists of given elements, with no condition.
inline constexpr std::uint8_t kGivenElements = 11;

constexpr bool isComparison(std::uint8_t code)
{
    return code >= kEqual && code <= kBetween;
}
} // namespace conditionop

// One condition on one field: request 13 carries it, reply 113 echoes it.
struct Condition {
    std::int32_t layer = 0;
    std::string field;
    std::int16_t fieldType = 0;
    std::uint8_t op = 0;
    std::string value1;
    // Used by "between" only.
    std::string value2;

    void encode(DWBUffer& message) const;
    static Condition decode(DWBUffer& message);
    bool operator==(const Condition&) const = default;
};

} // namespace orbelan::messages
