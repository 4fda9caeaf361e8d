#include "configuration/ThemeClasses.h"

#include "model/LeadingNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace orbelan {

namespace {

// Shortest text that reads back as the same Double ("25", "12.5").
std::string numberText(double value)
{
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} ? std::string(text.data(), end) : std::string();
}

std::array<int, 3> componentsOf(std::int32_t colour)
{
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

} // namespace

Theme& addClass(ThematicMap& themes, const Theme& style, std::string min, std::string max)
{
    return themes.Add(static_cast<std::int16_t>(style.DrawStyle), static_cast<std::int16_t>(style.DrawWidth),
                      style.DrawColor, style.FillColor, static_cast<std::int16_t>(style.FillStyle), std::move(min),
                      std::move(max));
}

void copyStyle(Theme& to, const Theme& from)
{
    to.DrawColor = from.DrawColor;
    to.DrawStyle = from.DrawStyle;
    to.DrawWidth = from.DrawWidth;
    to.FillColor = from.FillColor;
    to.FillStyle = from.FillStyle;
}

std::vector<std::pair<double, double>> equalRanges(const std::vector<std::string>& statistics, int count)
{
    std::vector<std::pair<double, double>> ranges;
    if (statistics.empty() || count <= 0) {
        return ranges;
    }
    const double low = Val(statistics.front());
    const double step = (Val(statistics.back()) - low) / count;
    for (int k = 1; k <= count; ++k) {
        ranges.emplace_back(low + (k - 1) * step, low + k * step);
    }
    return ranges;
}

void buildClasses(ThematicMap& themes, const Classification& classification)
{
    const Theme* current = themes.Find(1);
    const Theme fallback = current ? *current : Theme{};
    themes.Clear();
    addClass(themes, fallback, kDefaultClassMarker, fallback.max);
    if (classification.method == ThemeMethod::ValueList) {
        for (const std::string& value : classification.statistics) {
            addClass(themes, classification.style, value, value);
        }
    } else if (classification.method == ThemeMethod::Ranges) {
        for (const auto& [low, high] : equalRanges(classification.statistics, classification.ranges)) {
            addClass(themes, classification.style, numberText(low), numberText(high));
        }
    }
    colourAlongRamp(themes, classification);
}

void colourAlongRamp(ThematicMap& themes, const Classification& classification)
{
    const int count = themes.count();
    const std::array<int, 3> first = componentsOf(classification.firstColour);
    const std::array<int, 3> last = componentsOf(classification.lastColour);
    std::array<double, 3> step{};
    for (std::size_t c = 0; count >= 3 && c < step.size(); ++c) {
        step[c] = static_cast<double>(last[c] - first[c]) / (count - 2);
    }
    const Theme& style = classification.style;
    for (int position = 2; position <= count; ++position) {
        Theme& theme = *themes.Item(position);
        copyStyle(theme, style);
        std::int32_t colour = 0;
        for (std::size_t c = 0; c < step.size(); ++c) {
            // nearbyint rounds in the default mode: to nearest, halves to even.
            const auto component = static_cast<std::int32_t>(first[c] + std::nearbyint((position - 2) * step[c]));
            colour |= component << (8 * c);
        }
        if (classification.kind == polygonlayer) {
            theme.FillColor = colour;
        } else if (classification.kind < polygonlayer) {
            theme.DrawColor = colour;
        }
    }
}

} // namespace orbelan
