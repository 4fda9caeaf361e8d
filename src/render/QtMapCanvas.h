#pragma once

#include "render/LabelFonts.h"
#include "model/MapCanvas.h"
#include "render/PixelLines.h"
#include "render/PlacedLabel.h"
#include "render/RasterImages.h"
#include "render/TurnedLabels.h"
#include "render/WideLines.h"
#include "view/Viewport.h"

#include <QBrush>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QLine>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPoint>
#include <QPointF>
#include <QRectF>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace orbelan {

// The Viewer's drawing surface: the model's drawing members paint the
// control's persistent picture through a QPainter, with the view's
// transformation from geographic degrees to pixels.
//
// Pen styles 0 to 6 and fill styles 0 to 7 are the platform's pen and hatch
// styles, which Qt has one for one (the inside-frame pen draws solid). Lines
// are drawn without antialiasing in whole pixels, segment by segment, and
// consecutive vertices on the same pixel make one point, and geometry far outside the picture is cut at
// a margin around it, so that every coordinate handed to the painter is
// small. A point that is not a number breaks a line and is left out of a
// polygon.
//
// The painter is open for the canvas's lifetime, and lines of one pen are
// handed to it in batches: the picture is complete once the canvas is gone.
// Make one per redraw.
class QtMapCanvas : public MapCanvas {
public:
    QtMapCanvas(QImage& picture, const Viewport& view, const QPalette& palette);
    // A picture with a device pixel ratio above 1 is drawn at its full
    // resolution, sizes and widths counted in its logical pixels.
    //
    // A surface of the given size in pixels on any paint device, a PDF page
    // say: everything is drawn through the painter, so lines and polygons
    // stay vectors there.
    QtMapCanvas(QPaintDevice& device, QSize size, const Viewport& view, const QPalette& palette);
    ~QtMapCanvas() override;
    QtMapCanvas(const QtMapCanvas&) = delete;
    QtMapCanvas& operator=(const QtMapCanvas&) = delete;

    const BoundingBox& ViewBox() const override { return view_.viewBox(); }
    void ToScreen(std::span<const Vertex> vertices, std::span<ScreenPoint> screen) const override;
    void PlaneToScreen(std::span<const Vertex> plane, std::span<ScreenPoint> screen) const override;
    std::uint64_t ProjectionStamp() const override;
    bool ToPlane(const Vertex& geographic, Vertex& plane) const override;
    bool FromPlane(const Vertex& plane, Vertex& geographic) const override;
    void DrawPoints(std::span<const ScreenPoint> points, const Theme& theme) override;
    void DrawPolyline(std::span<const ScreenPoint> points, const Theme& theme, bool setLineStyle) override;
    void DrawPolygon(std::span<const ScreenPoint> points, const Theme& theme) override;
    void DrawDirectionMark(ScreenPoint from, ScreenPoint to, std::int16_t direction) override;
    void DrawRotatedText(double X, double Y, double angle, const std::string& text, bool bold, std::int32_t color,
                         std::int16_t align) override;
    // The image is read for the visible part of it only, at the size drawn.
    void DrawImage(std::int32_t ImageNumber) override;
    // The raster images DrawImage finds by number (not owned); none by default.
    void setRasters(const RasterImages* rasters) { rasters_ = rasters; }

    // What labels are measured and sized with: the control's own font, in
    // which a label's offsets from its anchor are measured, and the
    // control's logical dots per inch, which set the label font's size in
    // pixels. By default the application font at 96 dots per inch.
    void setTextMetrics(const QFont& surfaceFont, int logicalDpiY);

    // Smooth drawing: lines, polygons, points and direction marks are drawn
    // antialiased, whole coordinates on pixel centres, and the vertices of
    // lines and polygons where they fall within their pixels; a solid fill
    // keeps its exact colour wherever it covers a pixel whole. Off by
    // default: whole pixels, as described above.
    void setAntialiasing(bool on);
    // The label fonts, which placement measures labels in.
    LabelFonts& labelFonts() { return labelFonts_; }
    // A placed label in its font and colour over a one-pixel halo.
    void drawPlacedLabel(const PlacedLabel& label, const QColor& halo);
    // The surface's size in pixels.
    QRectF surface() const { return picture_; }

    // The painter, with everything drawn so far in it, for drawing over the map.
    QPainter& overlay();
    // Clears the whole surface with the colour.
    void fill(const QColor& colour);
    // The Qt styles of the control's pen and fill style numbers.
    static Qt::PenStyle penStyle(std::int32_t DrawStyle);
    static Qt::BrushStyle brushStyle(std::int32_t FillStyle);

private:
    // What the pixel writers get on a device without pixels of its own.
    QImage noPixels_;
    QImage& settable(QImage& picture);
    void setPen(std::int32_t color, std::int32_t style, std::int32_t width);
    void setBrush(std::int32_t style, std::int32_t color);
    QColor color(std::int32_t value) const;
    void setMargin(std::int32_t width);
    bool inside(double x, double y) const;
    void addPixel(double x, double y);
    void addClampedPixel(const QPointF& point);
    void lineTo(const ScreenPoint& from, const ScreenPoint& to);
    void endRun();
    void clearRun();
    void fillRing();
    void ownLine(std::size_t from, std::size_t to);
    void ownDot(std::size_t at);
    QPointF inPicture(QPointF at) const;
    void flushLines();
    void fillAndOutline();
    void restorePainterPen();
    void clipRing();
    void centreOnPixels(bool on);
    double markLength() const;

    PixelLines thin_;
    WideLines wide_;
    // The picture's pixels per surface pixel.
    double ratio_ = 1;
    QPainter painter_;
    const Viewport& view_;
    QPalette palette_;
    QRectF picture_;
    QRectF guard_;
    // The surface's current line style and width.
    std::int32_t lineStyle_ = 0;
    std::int32_t lineWidth_ = 1;
    // What the painter holds, so that it is changed only when a class differs.
    QPen pen_;
    QBrush brush_;
    std::uint64_t penKey_ = ~std::uint64_t{0};
    std::uint64_t brushKey_ = ~std::uint64_t{0};
    // Who draws the pen's lines: the painter, or for a solid opaque pen on a
    // picture of our own pixels, thin_ (one pixel of a picture of the
    // surface's size) or wide_ (smooth, wider or at a HiDPI picture's pixels).
    enum class LineWriter { Painter, Thin, Wide };
    LineWriter writer_ = LineWriter::Painter;
    // The painter holds no pen while it fills what thin_ or wide_ outlines.
    bool painterPenOff_ = false;
    // Work space kept from one primitive to the next.
    std::vector<QPoint> pixels_;
    // While drawing smoothly, the same points as they came, before rounding.
    std::vector<QPointF> exact_;
    std::vector<QPointF> ring_;
    std::vector<QPointF> clipped_;
    // Line segments and single-pixel runs not yet drawn, all in the current pen.
    std::vector<QLine> lines_;
    std::vector<QPoint> dots_;
    bool lineDrawn_ = false;
    bool smooth_ = false;
    // The painter is shifted half a pixel, so that whole coordinates fall on
    // pixel centres when drawing smoothly.
    bool centred_ = false;
    QFontMetricsF surfaceMetrics_{QFont()};
    LabelFonts labelFonts_{96};
    TurnedLabels turnedLabels_;
    const RasterImages* rasters_ = nullptr;
};

} // namespace orbelan
