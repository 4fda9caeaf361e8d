#pragma once

#include <QImage>

#include <cstddef>

namespace orbelan {

// The pixels of a 32-bit picture, written directly by the line writers.
// Taken before a painter opens on the picture; a picture of another format
// gives no pixels (usable() is false).
class PixelBuffer {
public:
    explicit PixelBuffer(QImage& picture);

    bool usable() const { return bits_ != nullptr; }
    int width() const { return width_; }
    int height() const { return height_; }
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
    QRgb& at(int x, int y) const
    {
        return reinterpret_cast<QRgb*>(bits_ + static_cast<std::ptrdiff_t>(y) * stride_)[x];
    }
    // Lays an opaque colour over the pixel at that coverage, 0 to 256.
    void blend(int x, int y, QRgb color, int coverage) const;

private:
    uchar* bits_ = nullptr;
    qsizetype stride_ = 0;
    int width_ = 0;
    int height_ = 0;
};

} // namespace orbelan
