#include "render/RotatedTextStart.h"

#include <cmath>

namespace orbelan {

namespace {

// The value of pi the placement has always used.
constexpr double kPi = 3.141592654;

} // namespace

QPointF rotatedTextStart(QPointF anchor, double angle, QSizeF text, std::int16_t align)
{
    const double a = angle * kPi / 180;
    switch (align) {
    case 2: return {anchor.x() - std::cos(a) * text.width() / 2, anchor.y() + std::sin(a) * text.width() / 2};
    case 3: return {anchor.x() - std::sin(a) * text.height() / 2, anchor.y() - std::cos(a) * text.height() / 2};
    default: return anchor;
    }
}

} // namespace orbelan
