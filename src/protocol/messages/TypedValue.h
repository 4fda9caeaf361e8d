#pragma once

#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orbelan::messages {

// Field values travel in the wire form of their field's type code (Integer,
// Long, Single, Double or String; nothing for any other code) and are held
// as text on both sides.

// Writes the text as a value of the type code: a number is written as the
// field stores it, and a text that is not a number of the type's range as 0.
void putTypedValue(DWBUffer& message, std::int16_t fieldType, std::string_view text);

// Reads a value of the type code and gives its text: numbers in their plain
// decimal form, an unknown code as an empty text (it carries no bytes).
std::string getTypedValue(DWBUffer& message, std::int16_t fieldType);

// One value with the type code it travels with.
struct TypedValue {
    std::int16_t type = 0;
    std::string text;

    bool operator==(const TypedValue&) const = default;
};

} // namespace orbelan::messages
