#pragma once

// Field values are shown, typed and totalled as text. Numbers take their
// plain decimal form: whole numbers without a fraction, singles to 7
// significant digits, doubles to 15, no trailing zeros.

#include "protocol/FieldTypes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orbelan {

// The text of a number held in a field of the given wire type.
std::string numberText(double value, WireType type);

// The number a whole text spells (blanks around it allowed), or nothing for
// an empty text, a partial number or an infinite one.
std::optional<double> parseNumber(std::string_view text);

// The value a numeric field of the given wire type stores for a text:
// integers rounded half to even and held to their range, singles rounded to
// float. Nothing for a text that is not a number or does not fit the range.
std::optional<double> storedNumber(std::string_view text, WireType type);

// Whether a text survives a round trip through the field's number type
// unchanged ("15" does through a long integer, "1.50" does not). Text fields
// and codes without a number type keep any text.
bool keepsTextThroughNumberType(std::string_view text, std::int16_t fieldType);

} // namespace orbelan
