#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orbelan {

// A direction value as the Integer it is written as: empty is 0, blanks
// around it and one leading plus sign are allowed, halves round to even.
// Nothing when the text is not a number within the Integer range.
std::optional<std::int16_t> directionOfText(const std::string& text);

} // namespace orbelan
