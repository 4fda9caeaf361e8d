#pragma once

#include "FieldTypes.h"

#include <cstdint>

namespace orbelan {

// Text fields are compared as text; every other code as a number.
inline bool IsTextFieldType(std::int16_t code)
{
    return wireTypeOf(code) == WireType::String;
}

} // namespace orbelan
