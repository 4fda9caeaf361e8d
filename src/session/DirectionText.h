#pragma once

#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan {

// A direction value as the Integer it is written as: empty is 0, otherwise
// as a short-integer field stores the text (blanks around it allowed, halves
// to even). A text that is not a number within the Integer range abandons
// the rest of the message being read.
std::int16_t directionOfText(const std::string& text, const DWBUffer& message);

} // namespace orbelan
