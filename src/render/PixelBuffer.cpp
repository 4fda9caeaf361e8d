#include "render/PixelBuffer.h"

namespace orbelan {

PixelBuffer::PixelBuffer(QImage& picture)
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

void PixelBuffer::blend(int x, int y, QRgb color, int coverage) const
{
    QRgb& pixel = at(x, y);
    const QRgb under = pixel;
    QRgb mixed = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int top = static_cast<int>((color >> shift) & 0xFF);
        const int bottom = static_cast<int>((under >> shift) & 0xFF);
        mixed |= static_cast<QRgb>(bottom + (((top - bottom) * coverage) >> 8)) << shift;
    }
    pixel = mixed;
}

} // namespace orbelan
