#include "render/PixelLines.h"

#include <cstdlib>

namespace orbelan {

PixelLines::PixelLines(QImage& picture)
{
    const QImage::Format format = picture.format();
    if (format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
        format == QImage::Format_ARGB32_Premultiplied) {
        bits_ = picture.bits();
        stride_ = picture.bytesPerLine();
        width_ = picture.width();
        height_ = picture.height();
    }
}

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

} // namespace orbelan
