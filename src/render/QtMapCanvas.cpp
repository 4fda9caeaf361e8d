#include "render/QtMapCanvas.h"

#include "render/DirectionMark.h"
#include "render/OleColor.h"
#include "render/RasterPlacement.h"
#include "render/RotatedTextStart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace orbelan {

namespace {

// Wider lines than this look no different on any screen.
constexpr std::int32_t kMaximumWidth = 1000;
// Geometry is cut this far outside the picture, plus the line width, so
// that cut ends and caps never show.
constexpr double kMargin = 16;
// A direction mark reaches this far from its points.
constexpr double kMarkReach = 64;
// The length of a degree of latitude on the sphere, in metres.
constexpr double kMetresPerDegree = 6371000.0 * std::numbers::pi / 180;
// No label is longer than this, so one anchored further out cannot show.
constexpr double kTextReach = 2048;

constexpr std::int32_t kBlack = 0x000000;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kMarkBorderWidth = 5;
// A mark shorter than this is its border alone, a black blob: it is left out.
constexpr double kShortestMark = 3 * kMarkBorderWidth;
// Segments of one pen are handed to the painter in batches of this many.
constexpr std::size_t kBatch = 4096;

// A screen coordinate as a Single: the nearest one, so that a point far
// outside the view stays finite and is cut like any other.
float toSingle(double value)
{
    constexpr double kLargest = std::numeric_limits<float>::max();
    if (std::isnan(value)) {
        return std::numeric_limits<float>::quiet_NaN();
    }
    return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

// The nearest whole pixel, halves away from zero, for a coordinate inside
// the guard.
int pixelOf(double value)
{
    int whole = static_cast<int>(value);
    const double rest = value - whole;
    if (rest >= 0.5) {
        ++whole;
    } else if (rest <= -0.5) {
        --whole;
    }
    return whole;
}

bool finite(const ScreenPoint& point)
{
    return std::isfinite(point.X) && std::isfinite(point.Y);
}

std::int32_t clampedWidth(std::int32_t width)
{
    return std::clamp(width, 0, kMaximumWidth);
}

// One side of the guard rectangle for clipping a ring: a point is kept when
// its coordinate on the axis lies on the inner side of the limit.
struct Edge {
    bool vertical;
    double limit;
    bool keepBelow;

    double coordinate(const QPointF& point) const { return vertical ? point.x() : point.y(); }
    bool keeps(const QPointF& point) const
    {
        return keepBelow ? coordinate(point) <= limit : coordinate(point) >= limit;
    }
    // Measured from the kept end, which is the nearer one to the picture:
    // from a far end the small difference would be lost.
    QPointF crossing(const QPointF& kept, const QPointF& dropped) const
    {
        const double t = (limit - coordinate(kept)) / (coordinate(dropped) - coordinate(kept));
        return kept + (dropped - kept) * t;
    }
};

// The part of the segment from a to b inside the rectangle, as parameters
// along it from a (Liang-Barsky); enter > leave when it misses.
std::pair<double, double> passage(const QRectF& area, double ax, double ay, double bx, double by)
{
    const double dx = bx - ax;
    const double dy = by - ay;
    double enter = 0;
    double leave = 1;
    const std::array<std::pair<double, double>, 4> sides = {
        {{-dx, ax - area.left()}, {dx, area.right() - ax}, {-dy, ay - area.top()}, {dy, area.bottom() - ay}}};
    for (const auto& [p, q] : sides) {
        if (p == 0) {
            if (q < 0) {
                return {1, 0};
            }
        } else if (p < 0) {
            enter = std::max(enter, q / p);
        } else {
            leave = std::min(leave, q / p);
        }
    }
    return {enter, leave};
}

} // namespace

// A picture of more pixels than its size (a HiDPI screen's) is drawn in
// through the painter's scaling, but for smooth solid lines, which are set
// at its own pixels.
QtMapCanvas::QtMapCanvas(QImage& picture, const Viewport& view, const QPalette& palette)
    : thin_(settable(picture)), wide_(picture), ratio_(picture.devicePixelRatio()), view_(view), palette_(palette),
      picture_(QPointF(0, 0), picture.deviceIndependentSize()), turnedLabels_(settable(picture))
{
    // The pixels are taken before the painter opens: it paints on the same.
    painter_.begin(&picture);
    setMargin(lineWidth_);
}

// No pixels to set directly: lines and labels go through the painter.
QtMapCanvas::QtMapCanvas(QPaintDevice& device, QSize size, const Viewport& view, const QPalette& palette)
    : thin_(noPixels_), wide_(noPixels_), view_(view), palette_(palette), picture_(QPointF(0, 0), QSizeF(size)), turnedLabels_(noPixels_)
{
    painter_.begin(&device);
    setMargin(lineWidth_);
}

QImage& QtMapCanvas::settable(QImage& picture)
{
    return picture.devicePixelRatio() == 1 ? picture : noPixels_;
}

void QtMapCanvas::setAntialiasing(bool on)
{
    flushLines();
    clearRun();
    centreOnPixels(false);
    smooth_ = on;
    painter_.setRenderHint(QPainter::Antialiasing, on);
    penKey_ = ~std::uint64_t{0};
}

void QtMapCanvas::centreOnPixels(bool on)
{
    on = on && smooth_;
    if (on != centred_) {
        centred_ = on;
        painter_.setTransform(on ? QTransform::fromTranslate(0.5, 0.5) : QTransform());
    }
}

QPainter& QtMapCanvas::overlay()
{
    flushLines();
    centreOnPixels(false);
    return painter_;
}

void QtMapCanvas::fill(const QColor& colour)
{
    centreOnPixels(false);
    painter_.fillRect(picture_, colour);
}

QtMapCanvas::~QtMapCanvas()
{
    flushLines();
}

Qt::PenStyle QtMapCanvas::penStyle(std::int32_t DrawStyle)
{
    switch (DrawStyle) {
    case 1: return Qt::DashLine;
    case 2: return Qt::DotLine;
    case 3: return Qt::DashDotLine;
    case 4: return Qt::DashDotDotLine;
    case 5: return Qt::NoPen;
    default: return Qt::SolidLine;
    }
}

Qt::BrushStyle QtMapCanvas::brushStyle(std::int32_t FillStyle)
{
    switch (FillStyle) {
    case 0: return Qt::SolidPattern;
    case 2: return Qt::HorPattern;
    case 3: return Qt::VerPattern;
    case 4: return Qt::FDiagPattern;
    case 5: return Qt::BDiagPattern;
    case 6: return Qt::CrossPattern;
    case 7: return Qt::DiagCrossPattern;
    default: return Qt::NoBrush;
    }
}

void QtMapCanvas::ToScreen(std::span<const Vertex> vertices, std::span<ScreenPoint> screen) const
{
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t k = 0; k < std::min(vertices.size(), screen.size()); ++k) {
        Vertex plane{kNone, kNone};
        ToPlane(vertices[k], plane);
        PlaneToScreen({&plane, 1}, screen.subspan(k, 1));
    }
}

void QtMapCanvas::PlaneToScreen(std::span<const Vertex> plane, std::span<ScreenPoint> screen) const
{
    const MapPoint centre = view_.centre();
    const double scale = view_.scale();
    const double halfWidth = view_.pixelWidth() / 2.0;
    const double halfHeight = view_.pixelHeight() / 2.0;
    for (std::size_t k = 0; k < std::min(plane.size(), screen.size()); ++k) {
        screen[k] = {toSingle((plane[k].X - centre.x) * scale + halfWidth),
                     toSingle((centre.y - plane[k].Y) * scale + halfHeight)};
    }
}

std::uint64_t QtMapCanvas::ProjectionStamp() const { return view_.projectionStamp(); }

bool QtMapCanvas::ToPlane(const Vertex& geographic, Vertex& plane) const
{
    MapPoint point;
    if (!view_.project(geographic.X, geographic.Y, point)) {
        return false;
    }
    plane = {point.x, point.y};
    return true;
}

bool QtMapCanvas::FromPlane(const Vertex& plane, Vertex& geographic) const
{
    return view_.unproject({plane.X, plane.Y}, geographic.X, geographic.Y);
}

QColor QtMapCanvas::color(std::int32_t value) const
{
    return olecolor::toQColor(static_cast<std::uint32_t>(value), palette_);
}

void QtMapCanvas::setPen(std::int32_t color, std::int32_t style, std::int32_t width)
{
    const Qt::PenStyle qtStyle = penStyle(style);
    const std::int32_t pixels = clampedWidth(width);
    const std::uint64_t key = static_cast<std::uint32_t>(color) | (static_cast<std::uint64_t>(qtStyle) << 32) |
                              (static_cast<std::uint64_t>(pixels) << 40);
    if (key != penKey_) {
        flushLines();
        penKey_ = key;
        const QColor penColor = this->color(color);
        pen_ = QPen(penColor, pixels, qtStyle, Qt::RoundCap, Qt::RoundJoin);
        painter_.setPen(pen_);
        painterPenOff_ = false;
        const bool ownPen = qtStyle == Qt::SolidLine && penColor.alpha() == 255;
        if (ownPen && pixels <= 1 && thin_.usable()) {
            writer_ = LineWriter::Thin;
            thin_.setColor(penColor.rgba());
        } else if (ownPen && smooth_ && wide_.usable()) {
            // Whole pixels of wide lines stay as the painter sets them.
            writer_ = LineWriter::Wide;
            wide_.setPen(penColor.rgba(), std::max(pixels, 1) * ratio_);
        } else {
            writer_ = LineWriter::Painter;
        }
    }
}

void QtMapCanvas::setBrush(std::int32_t style, std::int32_t color)
{
    const Qt::BrushStyle qtStyle = brushStyle(style);
    const std::uint64_t key = static_cast<std::uint32_t>(color) | (static_cast<std::uint64_t>(qtStyle) << 32);
    if (key != brushKey_) {
        brushKey_ = key;
        brush_ = QBrush(this->color(color), qtStyle);
        painter_.setBrush(brush_);
    }
}

void QtMapCanvas::setMargin(std::int32_t width)
{
    const double margin = kMargin + clampedWidth(width);
    guard_ = picture_.adjusted(-margin, -margin, margin, margin);
}

bool QtMapCanvas::inside(double x, double y) const
{
    return x >= guard_.left() && x <= guard_.right() && y >= guard_.top() && y <= guard_.bottom();
}

// A point cut to the guard may miss it by a rounding error.
void QtMapCanvas::addClampedPixel(const QPointF& point)
{
    addPixel(std::clamp(point.x(), guard_.left(), guard_.right()),
             std::clamp(point.y(), guard_.top(), guard_.bottom()));
}

// Only called with points inside the guard, whose pixels fit an int.
void QtMapCanvas::addPixel(double x, double y)
{
    const QPoint pixel(pixelOf(x), pixelOf(y));
    if (pixels_.empty() || pixels_.back() != pixel) {
        pixels_.push_back(pixel);
        if (smooth_) {
            exact_.emplace_back(x, y);
        }
    }
}

void QtMapCanvas::clearRun()
{
    pixels_.clear();
    exact_.clear();
}

void QtMapCanvas::DrawPoints(std::span<const ScreenPoint> points, const Theme& theme)
{
    if (theme.DrawStyle == 5) {
        return;
    }
    lineWidth_ = theme.DrawWidth;
    setPen(theme.DrawColor, 0, lineWidth_);
    setMargin(lineWidth_);
    flushLines();
    restorePainterPen();
    centreOnPixels(true);
    clearRun();
    for (const ScreenPoint& point : points) {
        if (finite(point) && inside(point.X, point.Y)) {
            pixels_.emplace_back(pixelOf(point.X), pixelOf(point.Y));
        }
    }
    painter_.drawPoints(pixels_.data(), static_cast<int>(pixels_.size()));
    clearRun();
}

void QtMapCanvas::DrawPolyline(std::span<const ScreenPoint> points, const Theme& theme, bool setLineStyle)
{
    if (theme.DrawStyle == 5) {
        return;
    }
    if (setLineStyle) {
        lineStyle_ = theme.DrawStyle;
    }
    if (theme.DrawWidth != 0) {
        lineWidth_ = theme.DrawWidth;
    }
    if (points.size() < 2) {
        return;
    }
    setPen(theme.DrawColor, lineStyle_, lineWidth_);
    setMargin(lineWidth_);
    clearRun();
    for (std::size_t k = 1; k < points.size(); ++k) {
        lineTo(points[k - 1], points[k]);
    }
    endRun();
}

// Adds the segment to the run of connected pixels, cut to the guard
// (Liang-Barsky). A segment that leaves the guard, or a point that is not a
// number, ends the run.
void QtMapCanvas::lineTo(const ScreenPoint& from, const ScreenPoint& to)
{
    if (!finite(from) || !finite(to)) {
        endRun();
        return;
    }
    if (inside(from.X, from.Y) && inside(to.X, to.Y)) {
        if (pixels_.empty()) {
            addPixel(from.X, from.Y);
        }
        addPixel(to.X, to.Y);
        return;
    }
    const auto [enter, leave] = passage(guard_, from.X, from.Y, to.X, to.Y);
    if (enter > leave) {
        endRun();
        return;
    }
    // Each end of the visible part is found from the nearer end of the
    // segment, the other one may be very far.
    const auto [backEnter, backLeave] = passage(guard_, to.X, to.Y, from.X, from.Y);
    const QPointF a(from.X, from.Y);
    const QPointF b(to.X, to.Y);
    const QPointF first = enter <= 0.5 ? a + (b - a) * enter : b + (a - b) * backLeave;
    const QPointF last = leave >= 0.5 ? b + (a - b) * backEnter : a + (b - a) * leave;
    if (enter > 0) {
        endRun();
    }
    if (pixels_.empty()) {
        addClampedPixel(first);
    }
    addClampedPixel(last);
    if (leave < 1) {
        endRun();
    }
}

// The run's segments join the batch of the current pen; a run whose
// segments all fall on one pixel shows as that pixel.
void QtMapCanvas::endRun()
{
    if (writer_ != LineWriter::Painter) {
        if (pixels_.size() == 1) {
            ownDot(0);
        }
        for (std::size_t k = 1; k < pixels_.size(); ++k) {
            ownLine(k - 1, k);
        }
        clearRun();
        return;
    }
    if (pixels_.size() == 1) {
        dots_.push_back(pixels_.front());
    }
    for (std::size_t k = 1; k < pixels_.size(); ++k) {
        lines_.emplace_back(pixels_[k - 1], pixels_[k]);
    }
    clearRun();
    if (lines_.size() >= kBatch) {
        flushLines();
    }
}

// Everything else is drawn over the lines batched before it, so it draws
// them first.
void QtMapCanvas::flushLines()
{
    wide_.composite();
    if (lines_.empty() && dots_.empty()) {
        return;
    }
    restorePainterPen();
    centreOnPixels(true);
    if (!lines_.empty()) {
        painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
        lines_.clear();
    }
    if (!dots_.empty()) {
        painter_.drawPoints(dots_.data(), static_cast<int>(dots_.size()));
        dots_.clear();
    }
}

void QtMapCanvas::DrawPolygon(std::span<const ScreenPoint> points, const Theme& theme)
{
    flushLines();
    centreOnPixels(true);
    lineStyle_ = theme.DrawStyle;
    lineWidth_ = theme.DrawWidth;
    setBrush(theme.FillStyle, theme.FillColor);
    setPen(theme.DrawColor, lineStyle_, lineWidth_);
    setMargin(lineWidth_);
    clearRun();
    const bool small = std::all_of(points.begin(), points.end(),
                                   [this](const ScreenPoint& point) { return inside(point.X, point.Y); });
    if (small) {
        for (const ScreenPoint& point : points) {
            addPixel(point.X, point.Y);
        }
    } else {
        ring_.clear();
        for (const ScreenPoint& point : points) {
            if (finite(point)) {
                ring_.emplace_back(point.X, point.Y);
            }
        }
        clipRing();
        for (const QPointF& point : ring_) {
            addClampedPixel(point);
        }
    }
    if (pixels_.size() > 2 && pixels_.front() == pixels_.back()) {
        pixels_.pop_back();
        if (smooth_) {
            exact_.pop_back();
        }
    }
    if (pixels_.size() >= 2) {
        fillAndOutline();
    } else if (pixels_.size() == 1) {
        restorePainterPen();
        painter_.drawPoint(pixels_.front());
    }
}

// A solid outline of our own is set around a fill drawn without pen.
void QtMapCanvas::fillAndOutline()
{
    if (writer_ == LineWriter::Painter) {
        restorePainterPen();
        fillRing();
        return;
    }
    if (!painterPenOff_) {
        painter_.setPen(Qt::NoPen);
        painterPenOff_ = true;
    }
    if (brush_.style() != Qt::NoBrush) {
        fillRing();
    }
    for (std::size_t k = 0; k < pixels_.size(); ++k) {
        ownLine(k == 0 ? pixels_.size() - 1 : k - 1, k);
    }
}

// Smooth drawing keeps the points where they fall within their pixels.
void QtMapCanvas::fillRing()
{
    const int count = static_cast<int>(pixels_.size());
    if (smooth_) {
        painter_.drawPolygon(exact_.data(), count, Qt::OddEvenFill);
    } else {
        painter_.drawPolygon(pixels_.data(), count, Qt::OddEvenFill);
    }
}

// From point to point of the run, by their places in it.
void QtMapCanvas::ownLine(std::size_t from, std::size_t to)
{
    if (writer_ == LineWriter::Wide) {
        wide_.segment(inPicture(exact_[from]), inPicture(exact_[to]));
    } else if (smooth_) {
        thin_.smoothLine(exact_[from], exact_[to]);
    } else {
        thin_.line(pixels_[from], pixels_[to]);
    }
}

void QtMapCanvas::ownDot(std::size_t at)
{
    if (writer_ == LineWriter::Wide) {
        wide_.segment(inPicture(exact_[at]), inPicture(exact_[at]));
    } else {
        thin_.dot(pixels_[at]);
    }
}

// The centre of a surface pixel in the picture's own pixels, counted from the
// centre of the first.
QPointF QtMapCanvas::inPicture(QPointF at) const
{
    return {ratio_ * (at.x() + 0.5) - 0.5, ratio_ * (at.y() + 0.5) - 0.5};
}

void QtMapCanvas::restorePainterPen()
{
    if (painterPenOff_) {
        painter_.setPen(pen_);
        painterPenOff_ = false;
    }
}

// Cuts ring_ to the guard, side by side (Sutherland-Hodgman). The cut runs
// along the guard, outside the picture.
void QtMapCanvas::clipRing()
{
    const std::array<Edge, 4> edges = {{{true, guard_.left(), false},
                                        {true, guard_.right(), true},
                                        {false, guard_.top(), false},
                                        {false, guard_.bottom(), true}}};
    for (const Edge& edge : edges) {
        clipped_.clear();
        for (std::size_t k = 0; k < ring_.size(); ++k) {
            const QPointF& from = ring_[k == 0 ? ring_.size() - 1 : k - 1];
            const QPointF& to = ring_[k];
            const bool fromKept = edge.keeps(from);
            const bool toKept = edge.keeps(to);
            if (fromKept != toKept) {
                clipped_.push_back(fromKept ? edge.crossing(from, to) : edge.crossing(to, from));
            }
            if (toKept) {
                clipped_.push_back(to);
            }
        }
        std::swap(ring_, clipped_);
    }
}

// A white arrowhead with a black border: the sides drawn 5 pixels wide in
// black, then the triangle filled white over their inner half.
void QtMapCanvas::DrawDirectionMark(ScreenPoint from, ScreenPoint to, std::int16_t direction)
{
    const double length = markLength();
    if (length < kShortestMark) {
        return;
    }
    const std::optional<DirectionMark> mark = DirectionMark::of(from, to, direction, length);
    const QRectF reach = picture_.adjusted(-kMarkReach, -kMarkReach, kMarkReach, kMarkReach);
    if (!mark || !reach.contains(mark->tip) || !reach.contains(mark->base1) || !reach.contains(mark->base2)) {
        return;
    }
    flushLines();
    centreOnPixels(true);
    setPen(kBlack, 0, kMarkBorderWidth);
    restorePainterPen();
    painter_.drawLine(mark->tip, mark->base1);
    painter_.drawLine(mark->tip, mark->base2);
    painter_.drawLine(mark->base1, mark->base2);
    lineStyle_ = 0;
    lineWidth_ = 1;
    setBrush(0, kWhite);
    setPen(kWhite, lineStyle_, lineWidth_);
    restorePainterPen();
    if (smooth_) {
        const std::array<QPointF, 3> triangle = {mark->tip, mark->base1, mark->base2};
        painter_.drawPolygon(triangle.data(), static_cast<int>(triangle.size()));
        return;
    }
    const std::array<QPoint, 3> triangle = {mark->tip.toPoint(), mark->base1.toPoint(), mark->base2.toPoint()};
    painter_.drawPolygon(triangle.data(), static_cast<int>(triangle.size()));
}

// The mark's map size in pixels at the view's scale; a latitude/longitude
// plane counts in degrees.
double QtMapCanvas::markLength() const
{
    const double unitsPerMetre = view_.Projection() == 0 ? 1 / kMetresPerDegree : 1;
    return DirectionMark::kLength * unitsPerMetre * view_.scale();
}

void QtMapCanvas::setTextMetrics(const QFont& surfaceFont, int logicalDpiY)
{
    surfaceMetrics_ = QFontMetricsF(surfaceFont);
    labelFonts_ = LabelFonts(logicalDpiY);
}

// The text is printed with its cell's top-left corner at the start, turned
// about it.
void QtMapCanvas::DrawRotatedText(double X, double Y, double angle, const std::string& text, bool bold,
                                  std::int32_t color, std::int16_t align)
{
    const Vertex point{X, Y};
    ScreenPoint anchor;
    ToScreen({&point, 1}, {&anchor, 1});
    const QRectF reach = picture_.adjusted(-kTextReach, -kTextReach, kTextReach, kTextReach);
    if (!finite(anchor) || !reach.contains(anchor.X, anchor.Y)) {
        return;
    }
    const QString label = QString::fromStdString(text);
    // Only centring along the text needs its width.
    const QSizeF size(align == 2 ? surfaceMetrics_.horizontalAdvance(label) : 0, surfaceMetrics_.height());
    const QPointF start = rotatedTextStart({anchor.X, anchor.Y}, angle, size, align);
    const double turn = LabelFonts::turn(angle);
    const LabelFonts::Face& face = labelFonts_.face(bold);
    qreal advance = 0;
    const QGlyphRun glyphs = face.layout(label, advance);
    flushLines();
    centreOnPixels(false);
    if (turn == 0) {
        setPen(color, 0, 1);
        restorePainterPen();
        painter_.drawGlyphRun(start, glyphs);
        return;
    }
    turnedLabels_.draw(painter_, start, turn, glyphs, {advance, face.height}, this->color(color));
}

void QtMapCanvas::drawPlacedLabel(const PlacedLabel& label, const QColor& halo)
{
    qreal advance = 0;
    const QGlyphRun glyphs = labelFonts_.face(label.bold).layout(label.text, advance);
    flushLines();
    turnedLabels_.draw(painter_, label.start, label.turn, glyphs, label.size, color(label.color), halo);
}

void QtMapCanvas::DrawImage(std::int32_t ImageNumber)
{
    const RasterSource* source = rasters_ ? rasters_->find(ImageNumber) : nullptr;
    if (source == nullptr) {
        return;
    }
    const std::optional<RasterPlacement> placement = RasterPlacement::place(source->extent(), view_);
    if (!placement) {
        return;
    }
    // What is drawn before lies under the image.
    flushLines();
    centreOnPixels(false);
    painter_.drawImage(placement->screen.topLeft(), source->read(placement->world, placement->screen.size()));
}

} // namespace orbelan
