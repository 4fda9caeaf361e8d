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

// Two channels at a time: each share of a channel fits in its 16 bits.
void PixelBuffer::blend(int x, int y, QRgb color, int coverage) const
{
    constexpr QRgb kAlternate = 0x00FF00FF;
    QRgb& pixel = at(x, y);
    const QRgb rest = static_cast<QRgb>(256 - coverage);
    const auto share = static_cast<QRgb>(coverage);
    const QRgb redBlue = ((color & kAlternate) * share + (pixel & kAlternate) * rest) >> 8;
    const QRgb alphaGreen = ((color >> 8) & kAlternate) * share + ((pixel >> 8) & kAlternate) * rest;
    pixel = (redBlue & kAlternate) | (alphaGreen & ~kAlternate);
}

} // namespace orbelan
