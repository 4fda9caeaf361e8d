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

namespace {

int nearest(double value) { return static_cast<int>(std::floor(value + 0.5)); }

} // namespace

// One step per pixel along the longer axis, from the pixel of one end to
// that of the other, the line's height at the step parted between the two
// pixels across it.
void PixelLines::smoothLine(QPointF from, QPointF to)
{
    const bool steep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
    // Along the longer axis as "x", across it as "y".
    QPointF start = steep ? QPointF(from.y(), from.x()) : from;
    QPointF end = steep ? QPointF(to.y(), to.x()) : to;
    if (start.x() > end.x()) {
        std::swap(start, end);
    }
    const int first = nearest(start.x());
    const int last = nearest(end.x());
    const double run = end.x() - start.x();
    const double slope = run > 0 ? (end.y() - start.y()) / run : 0;
    double across = start.y() + (first - start.x()) * slope;
    for (int along = first; along <= last; ++along, across += slope) {
        const double below = std::floor(across);
        const int whole = static_cast<int>(below);
        const int share = static_cast<int>((across - below) * 256);
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
