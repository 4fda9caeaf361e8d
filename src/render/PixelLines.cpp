#include "render/PixelLines.h"

#include <cmath>
#include <cstdlib>
#include <utility>

namespace orbelan {

void PixelLines::dot(QPoint at)
{
    if (contains(at)) {
        set(at.x(), at.y());
    }
}

// The callers' points lie within a margin of the picture, so the steps are
// few and every difference fits an int.
void PixelLines::line(QPoint from, QPoint to)
{
    const int dx = std::abs(to.x() - from.x());
    const int dy = -std::abs(to.y() - from.y());
    const int stepX = from.x() < to.x() ? 1 : -1;
    const int stepY = from.y() < to.y() ? 1 : -1;
    const bool checked = !contains(from) || !contains(to);
    int x = from.x();
    int y = from.y();
    int error = dx + dy;
    for (;;) {
        if (!checked || contains({x, y})) {
            set(x, y);
        }
        if (x == to.x() && y == to.y()) {
            return;
        }
        const int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            x += stepX;
        }
        if (twice <= dx) {
            error += dx;
            y += stepY;
        }
    }
}

void PixelLines::blend(int x, int y, int coverage)
{
    if (!contains({x, y})) {
        return;
    }
    pixels_.blend(x, y, color_, coverage);
}

void PixelLines::smoothLine(QPoint from, QPoint to)
{
    const bool steep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
    // Along the longer axis as "x", across it as "y".
    int x0 = steep ? from.y() : from.x();
    int y0 = steep ? from.x() : from.y();
    int x1 = steep ? to.y() : to.x();
    int y1 = steep ? to.x() : to.y();
    if (x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const int length = x1 - x0;
    if (length == 0) {
        dot(from);
        return;
    }
    // Fixed point, 8 bits of fraction.
    const int slope = ((y1 - y0) * 256) / length;
    int across = y0 * 256;
    for (int along = x0; along <= x1; ++along, across += slope) {
        const int whole = across >> 8;
        const int share = across & 0xFF;
        if (steep) {
            blend(whole, along, 256 - share);
            blend(whole + 1, along, share);
        } else {
            blend(along, whole, 256 - share);
            blend(along, whole + 1, share);
        }
    }
}

} // namespace orbelan
