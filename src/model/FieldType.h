#pragma once

#include <cstdint>

namespace orbelan {

// Field data types use the ADO numbering. These are the text types; every
// other code is compared as a number.
inline bool IsTextFieldType(std::int16_t code)
{
    switch (code) {
    case 8: case 129: case 130: case 200: case 201: case 202: case 203:
        return true;
    default:
        return false;
    }
}

} // namespace orbelan
