#include "render/TurnedLabels.h"

#include <QTransform>

#include <algorithm>
#include <cmath>

namespace orbelan {

namespace {

// The scratch grows in steps, so that a longer label rarely makes a new one.
constexpr int kGrowth = 64;
// The text sits this far inside the scratch, so its antialiased edges fit.
constexpr int kBorder = 1;

// One colour channel of a premultiplied pixel, covered by an opaque colour
// to the extent alpha (0 to 255).
QRgb blendChannel(QRgb under, QRgb over, int alpha, int shift)
{
    const int below = static_cast<int>((under >> shift) & 0xFF);
    const int above = static_cast<int>((over >> shift) & 0xFF);
    // value / 255, rounded, without a division: exact for 0 to 65535.
    const int value = below * 255 + (above - below) * alpha + 128;
    return static_cast<QRgb>((value + (value >> 8)) >> 8) << shift;
}

QRgb blend(QRgb under, QRgb over, int alpha)
{
    return blendChannel(under, over, alpha, 24) | blendChannel(under, over, alpha, 16) |
           blendChannel(under, over, alpha, 8) | blendChannel(under, over, alpha, 0);
}

// The values of x for which offset + slope * x lies strictly between low
// and high, intersected with [from, to]; inverse is 1 / slope.
void narrow(double slope, double inverse, double offset, double low, double high, double& from, double& to)
{
    if (slope == 0) {
        if (offset <= low || offset >= high) {
            to = from - 1;
        }
        return;
    }
    double first = (low - offset) * inverse;
    double last = (high - offset) * inverse;
    if (first > last) {
        std::swap(first, last);
    }
    from = std::max(from, first);
    to = std::min(to, last);
}

// 16.16 fixed point, rounded; the callers' values are a few thousand at most.
std::int32_t fixed(double value)
{
    return static_cast<std::int32_t>(std::floor(value * 65536.0 + 0.5));
}

} // namespace

// Where a picture pixel's centre falls in the scratch: u = cu * x + su * y
// + ou, and v likewise, with x and y the pixel's column and row.
struct TurnedLabels::Turn {
    double cu;
    double su;
    double ou;
    double cv;
    double sv;
    double ov;
    // 1 / cu and 1 / cv, where they are not 0.
    double inverseCu;
    double inverseCv;

    Turn(QPointF start, double degrees)
    {
        const double radians = degrees * M_PI / 180;
        const double c = std::cos(radians);
        const double s = std::sin(radians);
        // Undo the turn (counter-clockwise on a screen whose y grows
        // downwards) about start, then step into the scratch's border.
        const double x0 = 0.5 - start.x();
        const double y0 = 0.5 - start.y();
        cu = c;
        su = -s;
        ou = c * x0 - s * y0 + kBorder;
        cv = s;
        sv = c;
        ov = s * x0 + c * y0 + kBorder;
        inverseCu = cu != 0 ? 1 / cu : 0;
        inverseCv = cv != 0 ? 1 / cv : 0;
    }
};

TurnedLabels::TurnedLabels(QImage& picture) : glyphsOnly_(picture.isNull())
{
    const QImage::Format format = picture.format();
    if (format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied) {
        bits_ = picture.bits();
        stride_ = picture.bytesPerLine();
        width_ = picture.width();
        height_ = picture.height();
    }
}

void TurnedLabels::reserve(int width, int height)
{
    if (width <= scratch_.width() && height <= scratch_.height()) {
        return;
    }
    if (scratchPainter_.isActive()) {
        scratchPainter_.end();
    }
    scratch_ = QImage(std::max(width + kGrowth, scratch_.width()), std::max(height, scratch_.height()),
                      QImage::Format_ARGB32_Premultiplied);
    scratchPainter_.begin(&scratch_);
}

void TurnedLabels::writeLevel(const QGlyphRun& glyphs, QSizeF size, const QColor& color)
{
    usedWidth_ = static_cast<int>(std::ceil(size.width())) + 2 * kBorder;
    usedHeight_ = static_cast<int>(std::ceil(size.height())) + 2 * kBorder;
    reserve(usedWidth_, usedHeight_);
    scratchPainter_.setCompositionMode(QPainter::CompositionMode_Source);
    scratchPainter_.fillRect(0, 0, usedWidth_, usedHeight_, Qt::transparent);
    scratchPainter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    scratchPainter_.setPen(color);
    scratchPainter_.drawGlyphRun(QPointF(kBorder, kBorder), glyphs);
}

// The text's coverage with a zero border of one pixel all round.
void TurnedLabels::takeMask()
{
    maskStride_ = static_cast<std::size_t>(usedWidth_) + 2;
    mask_.assign(maskStride_ * (static_cast<std::size_t>(usedHeight_) + 2), 0);
    for (int row = 0; row < usedHeight_; ++row) {
        const auto* pixels = reinterpret_cast<const QRgb*>(scratch_.constScanLine(row));
        std::uint8_t* out = mask_.data() + (static_cast<std::size_t>(row) + 1) * maskStride_ + 1;
        for (int column = 0; column < usedWidth_; ++column) {
            out[column] = static_cast<std::uint8_t>(qAlpha(pixels[column]));
        }
    }
}

// Each coverage becomes the largest of its own and its eight neighbours':
// the text grown by a pixel all round, which the mask's border holds.
void TurnedLabels::widenMask()
{
    const std::vector<std::uint8_t> text = mask_;
    const std::size_t rows = mask_.size() / maskStride_;
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < maskStride_; ++column) {
            std::uint8_t widest = 0;
            for (std::size_t y = row > 0 ? row - 1 : 0; y <= std::min(row + 1, rows - 1); ++y) {
                for (std::size_t x = column > 0 ? column - 1 : 0; x <= std::min(column + 1, maskStride_ - 1); ++x) {
                    widest = std::max(widest, text[y * maskStride_ + x]);
                }
            }
            mask_[row * maskStride_ + column] = widest;
        }
    }
}

void TurnedLabels::draw(QPainter& painter, QPointF start, double turn, const QGlyphRun& glyphs, QSizeF size,
                        const QColor& color, std::optional<QColor> halo)
{
    if (glyphsOnly_) {
        drawGlyphs(painter, start, turn, glyphs, color, halo);
        return;
    }
    writeLevel(glyphs, size, color);
    if (bits_ != nullptr && color.alpha() == 255) {
        takeMask();
        if (halo) {
            std::vector<std::uint8_t> text = mask_;
            widenMask();
            setTurned(Turn(start, turn), halo->rgba());
            mask_ = std::move(text);
        }
        setTurned(Turn(start, turn), color.rgba());
        return;
    }
    painter.setTransform(QTransform::fromTranslate(start.x(), start.y()).rotate(-turn));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QPointF(-kBorder, -kBorder), scratch_, QRect(0, 0, usedWidth_, usedHeight_));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.resetTransform();
}

// A device with no picture of its own (a PDF page) keeps the text as text.
void TurnedLabels::drawGlyphs(QPainter& painter, QPointF start, double turn, const QGlyphRun& glyphs,
                              const QColor& color, std::optional<QColor> halo)
{
    painter.save();
    painter.setTransform(QTransform::fromTranslate(start.x(), start.y()).rotate(-turn));
    if (halo) {
        painter.setPen(*halo);
        for (const QPointF step : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)}) {
            painter.drawGlyphRun(step, glyphs);
        }
    }
    painter.setPen(color);
    painter.drawGlyphRun(QPointF(0, 0), glyphs);
    painter.restore();
}

// The rows the turned scratch covers, each over the columns where it lies.
void TurnedLabels::setTurned(const Turn& turn, QRgb color)
{
    // The scratch's corners in the picture: the turn is a rotation, so the
    // inverse of (u, v) = M (x, y) + o is x = M^T ((u, v) - o).
    double top = height_;
    double bottom = -1;
    for (const double u : {0.0, static_cast<double>(usedWidth_)}) {
        for (const double v : {0.0, static_cast<double>(usedHeight_)}) {
            const double y = turn.su * (u - turn.ou) + turn.sv * (v - turn.ov);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    const int first = std::max(0, static_cast<int>(std::floor(top)) - 1);
    const int last = std::min(height_ - 1, static_cast<int>(std::ceil(bottom)) + 1);
    for (int y = first; y <= last; ++y) {
        blendRow(turn, y, color);
    }
}

void TurnedLabels::blendRow(const Turn& turn, int y, QRgb color)
{
    // A sample half a pixel or more outside the text covers nothing.
    double from = 0;
    double to = width_ - 1;
    narrow(turn.cu, turn.inverseCu, turn.su * y + turn.ou, -0.5, usedWidth_ + 0.5, from, to);
    narrow(turn.cv, turn.inverseCv, turn.sv * y + turn.ov, -0.5, usedHeight_ + 0.5, from, to);
    if (!(from <= to)) {
        return;
    }
    // Narrowing only ever shrinks [0, width - 1], so both ends fit an int.
    const int first = static_cast<int>(std::ceil(from));
    const int last = static_cast<int>(std::floor(to));
    // Mask coordinates in 16.16 fixed point, stepped along the row: the
    // mask's border moves them by one, the pixel centres by a half.
    std::int32_t u = fixed(turn.cu * first + turn.su * y + turn.ou + 0.5);
    std::int32_t v = fixed(turn.cv * first + turn.sv * y + turn.ov + 0.5);
    const std::int32_t du = fixed(turn.cu);
    const std::int32_t dv = fixed(turn.cv);
    auto* row = reinterpret_cast<QRgb*>(bits_ + static_cast<std::ptrdiff_t>(y) * stride_);
    // Blending every pixel, even uncovered ones, spares a branch that
    // glyph edges make unpredictable.
    for (int x = first; x <= last; ++x, u += du, v += dv) {
        row[x] = blend(row[x], color, coverage(u, v));
    }
}

// The mask's coverage at fixed-point (u, v), bilinear between the four
// nearest pixel centres; the mask's zero border fades the text's edges.
int TurnedLabels::coverage(std::int32_t u, std::int32_t v) const
{
    const int column = u >> 16;
    const int row = v >> 16;
    // Rounding along a long row may step a hair outside.
    if (column < 0 || row < 0 || column > usedWidth_ || row > usedHeight_) {
        return 0;
    }
    const int fx = (u >> 8) & 0xFF;
    const int fy = (v >> 8) & 0xFF;
    const std::uint8_t* at = mask_.data() + static_cast<std::size_t>(row) * maskStride_ + column;
    const int above = at[0] * (256 - fx) + at[1] * fx;
    const int below = at[maskStride_] * (256 - fx) + at[maskStride_ + 1] * fx;
    return (above * (256 - fy) + below * fy + (1 << 15)) >> 16;
}

} // namespace orbelan
