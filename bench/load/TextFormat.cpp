#include "load/TextFormat.h"

#include <cstdio>

namespace orbelan::load {

std::string grouped(std::uint64_t value)
{
    const std::string digits = std::to_string(value);
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) {
            text += ',';
        }
        text += digits[i];
    }
    return text;
}

std::string fixed(double value, int decimals)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string megabytes(long kilobytes)
{
    return fixed(static_cast<double>(kilobytes) / 1024.0, 0) + " MB";
}

} // namespace orbelan::load
