#pragma once

// Field data types travel as ADO type codes. What matters on the wire is the
// group a code falls in, which decides how a value of that field is written:
// short integers as Integer, long integers as Long, single as Single, doubles
// as Double, texts as String. A value of any other code carries no bytes.

#include <cstdint>

namespace orbelan {

enum class WireType { Integer, Long, Single, Double, String, None };

// The codes the project itself writes.
namespace fieldtype {
inline constexpr std::int16_t kSmallInteger = 2;
inline constexpr std::int16_t kInteger = 3;
inline constexpr std::int16_t kBigInteger = 20;
inline constexpr std::int16_t kDouble = 5;
inline constexpr std::int16_t kVarChar = 202;
} // namespace fieldtype

constexpr WireType wireTypeOf(std::int16_t code)
{
    switch (code) {
    case 2: case 16: case 17: case 18:
        return WireType::Integer;
    case 3: case 19: case 20: case 21:
        return WireType::Long;
    case 4:
        return WireType::Single;
    case 5: case 14: case 131:
        return WireType::Double;
    case 8: case 129: case 130: case 200: case 201: case 202: case 203:
        return WireType::String;
    default:
        return WireType::None;
    }
}

// Text fields are compared as text; every other code as a number.
constexpr bool IsTextFieldType(std::int16_t code)
{
    return wireTypeOf(code) == WireType::String;
}

} // namespace orbelan
