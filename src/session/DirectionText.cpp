#include "session/DirectionText.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace orbelan {

namespace {

std::string_view numberPart(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    return text;
}

} // namespace

std::optional<std::int16_t> directionOfText(const std::string& text)
{
    if (text.empty()) {
        return 0;
    }
    const std::string_view number = numberPart(text);
    double value = 0;
    const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), value);
    const double rounded = std::nearbyint(value);
    if (number.empty() || failure != std::errc() || end != number.data() + number.size() ||
        !(rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(rounded);
}

} // namespace orbelan
