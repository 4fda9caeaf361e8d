#pragma once

// Colours as the protocol and the persisted properties carry them: a Long
// with red in the low byte, green next and blue above. A value with the high
// bit set (0x80000000 + n) names system colour n, resolved through a palette.

#include <QColor>
#include <QPalette>

#include <cstdint>

namespace orbelan::olecolor {

inline constexpr std::uint32_t kSystemColor = 0x80000000u;
inline constexpr std::uint32_t kButtonFace = kSystemColor + 15;
inline constexpr std::uint32_t kButtonText = kSystemColor + 18;

QColor toQColor(std::uint32_t color, const QPalette& palette);
// The Long of an RGB colour (alpha is dropped).
std::uint32_t fromQColor(const QColor& color);

} // namespace orbelan::olecolor
