#include "protocol/FieldValueText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace orbelan {

namespace {

// Room for "%.0f" of the largest double: 309 digits, a sign and the end.
std::string printed(const char* format, double value)
{
    char text[320];
    const int length = std::snprintf(text, sizeof text, format, value);
    return std::string(text, static_cast<std::size_t>(length));
}

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::optional<double> withinIntegerRange(double value, double low, double high)
{
    const double rounded = std::nearbyint(value);
    if (rounded < low || rounded > high) {
        return std::nullopt;
    }
    return rounded + 0.0; // no "-0" for a small negative fraction
}

} // namespace

std::string numberText(double value, WireType type)
{
    switch (type) {
    case WireType::Integer:
    case WireType::Long:
        return printed("%.0f", value);
    case WireType::Single:
        if (std::fabs(value) <= std::numeric_limits<float>::max()) {
            return printed("%.7g", static_cast<double>(static_cast<float>(value)));
        }
        return printed("%.7g", value);
    default:
        return printed("%.15g", value);
    }
}

std::optional<double> parseNumber(std::string_view text)
{
    text = trimmed(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<double> storedNumber(std::string_view text, WireType type)
{
    const std::optional<double> value = parseNumber(text);
    if (!value) {
        return std::nullopt;
    }
    switch (type) {
    case WireType::Integer:
        return withinIntegerRange(*value, std::numeric_limits<std::int16_t>::min(),
                                  std::numeric_limits<std::int16_t>::max());
    case WireType::Long:
        return withinIntegerRange(*value, std::numeric_limits<std::int32_t>::min(),
                                  std::numeric_limits<std::int32_t>::max());
    case WireType::Single:
        if (std::fabs(*value) > std::numeric_limits<float>::max()) {
            return std::nullopt;
        }
        return static_cast<double>(static_cast<float>(*value));
    default:
        return value;
    }
}

bool keepsTextThroughNumberType(std::string_view text, std::int16_t fieldType)
{
    const WireType type = wireTypeOf(fieldType);
    if (type == WireType::String || type == WireType::None) {
        return true;
    }
    const std::optional<double> stored = storedNumber(text, type);
    return stored && numberText(*stored, type) == text;
}

} // namespace orbelan
