#include "render/DirectionMark.h"

#include <cmath>
#include <numbers>

namespace orbelan {

std::optional<DirectionMark> DirectionMark::of(ScreenPoint from, ScreenPoint to, std::int16_t direction,
                                              double length)
{
    if (direction == 0 || !std::isfinite(from.X) || !std::isfinite(from.Y) || !std::isfinite(to.X) ||
        !std::isfinite(to.Y)) {
        return std::nullopt;
    }
    // Upwards positive, as in the map's plane.
    const double dx = static_cast<double>(to.X) - from.X;
    const double dy = static_cast<double>(from.Y) - to.Y;
    if (!(std::hypot(dx, dy) >= length)) {
        return std::nullopt;
    }
    double theta = 0;
    if (dx > 0) {
        theta = -std::atan(dy / dx);
    } else if (dx < 0) {
        theta = std::numbers::pi - std::atan(dy / dx);
    } else {
        theta = dy < 0 ? std::numbers::pi / 2 : -std::numbers::pi / 2;
    }
    if (direction == -1) {
        theta += std::numbers::pi;
    }
    const double midX = (static_cast<double>(from.X) + to.X) / 2;
    const double midY = -(static_cast<double>(from.Y) + to.Y) / 2;
    const double sine = std::sin(theta);
    const double cosine = std::cos(theta);
    const double halfBase = length / 4;
    // Back to the screen, where Y grows downwards.
    const auto screen = [](double x, double y) { return QPointF(x, -y); };
    return DirectionMark{screen(midX + length * cosine, midY - length * sine),
                         screen(midX + halfBase * sine, midY + halfBase * cosine),
                         screen(midX - halfBase * sine, midY - halfBase * cosine)};
}

} // namespace orbelan
