#pragma once

#include <QImage>
#include <QPoint>

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
    explicit PixelLines(QImage& picture);

    bool usable() const { return bits_ != nullptr; }
    // An opaque colour as the picture stores it.
    void setColor(QRgb color) { color_ = color; }
    void line(QPoint from, QPoint to);
    void dot(QPoint at);
    void smoothLine(QPoint from, QPoint to);

private:
    bool contains(QPoint at) const { return at.x() >= 0 && at.y() >= 0 && at.x() < width_ && at.y() < height_; }
    void set(int x, int y) { reinterpret_cast<QRgb*>(bits_ + static_cast<std::ptrdiff_t>(y) * stride_)[x] = color_; }

    // Lays the colour over the pixel at that coverage, 0 to 256.
    void blend(int x, int y, int coverage);

    uchar* bits_ = nullptr;
    qsizetype stride_ = 0;
    int width_ = 0;
    int height_ = 0;
    QRgb color_ = 0;
};

} // namespace orbelan
