#pragma once

#include "render/PixelBuffer.h"

#include <QImage>
#include <QPoint>
#include <QPointF>

#include <cstdint>

namespace orbelan {

// Thin solid lines set pixel by pixel in a 32-bit picture: what the painter's
// one-pixel pen draws, at a fraction of its cost per segment, which matters
// when a redraw hands over a million short segments. Each segment covers
// both its ends and one pixel per step along its longer axis (Bresenham).
// Pixels outside the picture are left alone.
//
// Smooth lines cover, at each step along the longer axis, the two pixels
// across the line in shares of how near each lies to it (Wu), blended over
// what is there.
class PixelLines {
public:
    // The picture's pixels, taken before a painter opens on it; a picture of
    // another format gives no pixels to draw on (usable() is false).
    explicit PixelLines(QImage& picture) : pixels_(picture) {}

    bool usable() const { return pixels_.usable(); }
    // An opaque colour as the picture stores it.
    void setColor(QRgb color) { color_ = color; }
    void line(QPoint from, QPoint to);
    void dot(QPoint at);
    // From and to anywhere within their pixels, pixel centres at whole numbers.
    void smoothLine(QPointF from, QPointF to);

private:
    bool contains(QPoint at) const { return pixels_.contains(at.x(), at.y()); }
    void set(int x, int y) { pixels_.at(x, y) = color_; }
    // Lays the colour over the pixel, if in the picture, at that coverage, 0 to 256.
    void blend(int x, int y, int coverage);

    PixelBuffer pixels_;
    QRgb color_ = 0;
};

} // namespace orbelan
