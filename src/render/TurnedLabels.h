#pragma once

#include <QColor>
#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QSizeF>

#include <cstdint>
#include <optional>
#include <vector>

namespace orbelan {

// Writes turned labels the fast way. Text written through a turned painter
// has every glyph rasterized anew for each new angle, some 65 µs a label.
// Here the text is written level into a scratch picture, where the font
// engine's cached glyphs serve, and its coverage is then set turned into
// the picture, sampled bilinearly, row by row over the turned rectangle only.
// A picture whose pixels cannot be set directly gets the scratch through
// the painter instead, and a device without a picture (a PDF page) the
// glyphs themselves.
class TurnedLabels {
public:
    // The picture's pixels, taken before a painter opens on it.
    explicit TurnedLabels(QImage& picture);
    TurnedLabels(const TurnedLabels&) = delete;
    TurnedLabels& operator=(const TurnedLabels&) = delete;

    // The text in font and color with its cell's top-left corner at start,
    // turned turn degrees counter-clockwise about it. With a halo colour the
    // text is first ringed one pixel wide in it (on a picture whose pixels
    // are set directly, and on a device without a picture).
    void draw(QPainter& painter, QPointF start, double turn, const QGlyphRun& glyphs, QSizeF size,
              const QColor& color, std::optional<QColor> halo = std::nullopt);

private:
    struct Turn;

    void drawGlyphs(QPainter& painter, QPointF start, double turn, const QGlyphRun& glyphs, const QColor& color,
                    std::optional<QColor> halo);
    void writeLevel(const QGlyphRun& glyphs, QSizeF size, const QColor& color);
    void setTurned(const Turn& turn, QRgb color);
    void takeMask();
    void widenMask();
    void blendRow(const Turn& turn, int y, QRgb color);
    int coverage(std::int32_t u, std::int32_t v) const;
    void reserve(int width, int height);

    bool glyphsOnly_ = false;
    uchar* bits_ = nullptr;
    qsizetype stride_ = 0;
    int width_ = 0;
    int height_ = 0;
    QImage scratch_;
    QPainter scratchPainter_;
    // The part of the scratch the current text takes.
    int usedWidth_ = 0;
    int usedHeight_ = 0;
    std::vector<std::uint8_t> mask_;
    std::size_t maskStride_ = 0;
};

} // namespace orbelan
