#include "model/Entidad.h"

#include "model/MapCanvas.h"
#include "model/Theme.h"
#include "model/layer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <stdexcept>
#include <string>

namespace orbelan {

namespace {

// A crossing is kept in single precision. One beyond the Single range keeps
// its double value: it lies that far beyond the pointer either way, so the
// count comes out as it would with the range unbounded.
double roundedToSingle(double value)
{
    if (!std::isfinite(value) || std::fabs(value) > std::numeric_limits<float>::max()) {
        return value;
    }
    return static_cast<float>(value);
}

// Whether the edge crosses the ray from (X, Y) towards +X. Only edges whose
// Y range holds Y strictly count, so a horizontal edge never does; a nearly
// horizontal one crosses at X itself.
bool crossesRightOf(double X, double Y, const Vertex& from, const Vertex& to)
{
    if (!(std::min(from.Y, to.Y) < Y && Y < std::max(from.Y, to.Y))) {
        return false;
    }
    const double dy = to.Y - from.Y;
    const double crossing = std::fabs(dy) < 1E-8 ? X : roundedToSingle(from.X + (to.X - from.X) * (Y - from.Y) / dy);
    return X <= crossing;
}

// The signed area and centroid of the trapezoid between an edge and the line
// Y = 0: a rectangle up to the lower end plus a right triangle up to the
// higher one. The area is negative when X decreases along the edge, so the
// edges of a closed ring sum to its area whatever its orientation.
double trapezoid(const Vertex& from, const Vertex& to, Vertex& centroid)
{
    const double width = to.X - from.X;
    const Vertex& low = to.Y > from.Y ? from : to;
    const Vertex& high = to.Y > from.Y ? to : from;
    const double rectangle = width * low.Y;
    const double triangle = width * (high.Y - low.Y) / 2;
    const double area = rectangle + triangle;
    if (area == 0) {
        return 0;
    }
    const Vertex rectangleCentre{(from.X + to.X) / 2, low.Y / 2};
    const Vertex triangleCentre{high.X - (high.X - low.X) / 3, low.Y + (high.Y - low.Y) / 3};
    centroid = {(rectangle * rectangleCentre.X + triangle * triangleCentre.X) / area,
                (rectangle * rectangleCentre.Y + triangle * triangleCentre.Y) / area};
    return area;
}

// Where a label goes and how it turns and aligns, as the surface's text
// primitive takes them.
struct LabelAnchor {
    Vertex position;
    double angle = 0;
    std::int16_t align = 1;
};

constexpr std::int16_t kAlignTopLeft = 1;
constexpr std::int16_t kAlignAcross = 3;
// A first segment narrower than this in the plane counts as vertical.
constexpr double kVerticalWidth = 1E-7;

// A line's label runs along its first segment (a single vertex counts as a
// vertical one) from the segment's middle in the plane.
std::optional<LabelAnchor> firstSegmentAnchor(std::span<const Vertex> points, const MapCanvas& Wnd)
{
    Vertex from;
    Vertex to;
    if (points.empty() || !Wnd.ToPlane(points[0], from) || !Wnd.ToPlane(points[points.size() > 1 ? 1 : 0], to)) {
        return std::nullopt;
    }
    const double dx = to.X - from.X;
    const double dy = to.Y - from.Y;
    LabelAnchor anchor;
    anchor.angle = std::fabs(dx) <= kVerticalWidth ? 90.0 : std::atan(dy / dx) * 180.0 / std::numbers::pi;
    anchor.align = kAlignAcross;
    if (!Wnd.FromPlane({(from.X + to.X) / 2, (from.Y + to.Y) / 2}, anchor.position)) {
        return std::nullopt;
    }
    return anchor;
}

} // namespace

void Entidad::SetPoints(std::span<const Vertex> points)
{
    // UboundPoints is a Long.
    if (points.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw std::length_error("an entity holds at most 2147483647 vertices");
    }
    points_.assign(points.begin(), points.end());
    // Positions drawn for other vertices mean nothing now.
    screen_.reset();
    plane_.reset();
}

void Entidad::CalculateBoundingBox()
{
    for (const Vertex& vertex : points_) {
        bb.Union(vertex.X, vertex.Y, vertex.X, vertex.Y);
    }
    if (parentLayer != nullptr) {
        parentLayer->bb.Union(bb.MinX, bb.MinY, bb.MaxX, bb.MaxY);
    }
}

TipoLayer Entidad::kind() const
{
    if (parentLayer == nullptr) {
        throw std::logic_error("entity " + std::to_string(ID) + " belongs to no layer, so it has no kind");
    }
    return parentLayer->Tipo;
}

double Entidad::DistPuntoAEntidad(double X, double Y) const
{
    switch (static_cast<std::int32_t>(kind())) {
    case pointlayer:
        return points_.empty() ? 0.0 : PointDistance(X, Y, points_[0].X, points_[0].Y);
    case polylinelayer:
    case 3:
        return lineDistance(X, Y);
    default:
        return kNoSegment;
    }
}

double Entidad::lineDistance(double X, double Y) const
{
    double best = kNoSegment;
    for (std::size_t k = 1; k < points_.size(); ++k) {
        const Vertex& a = points_[k - 1];
        const Vertex& b = points_[k];
        const double distance = SegmentDistance(X, Y, a.X, a.Y, b.X, b.Y, false);
        if (distance >= 0 && distance < best) {
            best = distance;
        }
    }
    return best;
}

SegmentMatch Entidad::GetNearestSegment(double xp, double yp) const
{
    SegmentMatch match{kNoSegment, {}, {}};
    const auto tipo = static_cast<std::int32_t>(kind());
    const std::optional<std::size_t> nearest = firstNearestVertex(xp, yp);
    if (tipo < polylinelayer || tipo > polygonlayer || !nearest) {
        return match;
    }
    // A polygon's ring wraps around; a line has no segment before its first
    // vertex or after its last.
    const std::size_t k = *nearest;
    const std::size_t last = points_.size() - 1;
    const bool ring = tipo == polygonlayer;
    std::optional<std::size_t> previous;
    std::optional<std::size_t> next;
    if (k > 0 || ring) {
        previous = k > 0 ? k - 1 : last;
    }
    if (k < last || ring) {
        next = k < last ? k + 1 : 0;
    }
    const double dPrevious = previous ? neighbourDistance(xp, yp, k, *previous) : kNoSegment;
    const double dNext = next ? neighbourDistance(xp, yp, k, *next) : kNoSegment;

    match.from = points_[k];
    if (dPrevious < dNext) {
        match.to = points_[*previous];
        match.distance = dPrevious;
    } else if (dNext != kNoSegment) {
        match.to = points_[*next];
        match.distance = dNext;
    }
    return match;
}

// Unlike NearestVertex, the first of equally near vertices wins here.
std::optional<std::size_t> Entidad::firstNearestVertex(double xp, double yp) const
{
    std::optional<std::size_t> nearest;
    double nearestDistance = kNoSegment;
    for (std::size_t k = 0; k < points_.size(); ++k) {
        const double distance = PointDistance(xp, yp, points_[k].X, points_[k].Y);
        if (distance < nearestDistance) {
            nearestDistance = distance;
            nearest = k;
        }
    }
    return nearest;
}

// A segment whose foot falls outside it is no candidate.
double Entidad::neighbourDistance(double xp, double yp, std::size_t vertex, std::size_t neighbour) const
{
    const Vertex& a = points_[vertex];
    const Vertex& b = points_[neighbour];
    const double distance = SegmentDistance(xp, yp, a.X, a.Y, b.X, b.Y, false);
    return distance < 0 ? kNoSegment : distance;
}

VertexMatch Entidad::NearestVertex(double X, double Y) const
{
    VertexMatch match{kNoVertex, {}};
    for (const Vertex& vertex : points_) {
        const double distance = PointDistance(X, Y, vertex.X, vertex.Y);
        if (distance <= match.distance) {
            match = {distance, vertex};
        }
    }
    return match;
}

bool Entidad::PointInPolygon(double X, double Y) const
{
    if (!bb.PointInBoundingBox(X, Y)) {
        return false;
    }
    for (const Vertex& vertex : points_) {
        if (vertex.X == X && vertex.Y == Y) {
            return true;
        }
    }
    std::size_t crossings = 0;
    for (std::size_t k = 0; k < points_.size(); ++k) {
        const Vertex& to = points_[k];
        const Vertex& from = points_[k == 0 ? points_.size() - 1 : k - 1];
        crossings += crossesRightOf(X, Y, from, to) ? 1 : 0;
    }
    return crossings % 2 == 1;
}

Vertex Entidad::Centroide() const
{
    switch (static_cast<std::int32_t>(kind())) {
    case pointlayer:
        return points_.empty() ? Vertex{} : points_[0];
    case polylinelayer:
    case 3:
        return vertexMean();
    case polygonlayer:
        return polygonCentroid();
    default:
        return {};
    }
}

Vertex Entidad::vertexMean() const
{
    if (points_.empty()) {
        return {};
    }
    Vertex sum;
    for (const Vertex& vertex : points_) {
        sum.X += vertex.X;
        sum.Y += vertex.Y;
    }
    const auto n = static_cast<double>(points_.size());
    return {sum.X / n, sum.Y / n};
}

Vertex Entidad::polygonCentroid() const
{
    double area = 0;
    Vertex moment;
    for (std::size_t k = 0; k < points_.size(); ++k) {
        const Vertex& to = points_[k];
        const Vertex& from = points_[k == 0 ? points_.size() - 1 : k - 1];
        Vertex centre;
        const double edgeArea = trapezoid(from, to, centre);
        area += edgeArea;
        moment.X += edgeArea * centre.X;
        moment.Y += edgeArea * centre.Y;
    }
    if (area == 0) {
        return vertexMean();
    }
    return {moment.X / area, moment.Y / area};
}

double Entidad::SegmentDistance(double px, double py, double x1, double y1, double x2, double y2,
                                bool alwaysPositive)
{
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    if (dx == 0 && dy == 0) {
        return kNoSegment;
    }
    double fx = px;
    double fy = y1;
    double t = 0;
    if (dx == 0) {
        fx = x1;
        fy = py;
        t = (py - y1) / dy;
    } else if (dy == 0) {
        t = (px - x1) / dx;
    } else {
        // The foot solves the segment's line (slope dy/dx) against the
        // perpendicular through P (slope -dx/dy), term by term as written
        // here, so that results agree to the last bit.
        fx = ((-dy / dx) * x1 + (dx / -dy) * px + y1 - py) / (dx / -dy - dy / dx);
        t = (fx - x1) / dx;
        fy = y1 + dy * t;
    }
    const double distance = std::sqrt((fy - py) * (fy - py) + (fx - px) * (fx - px));
    return (t >= 0 && t <= 1) || alwaysPositive ? distance : -distance;
}

double Entidad::PointDistance(double x1, double y1, double x2, double y2)
{
    return std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2));
}

const Theme& Entidad::drawingClass() const
{
    static const Theme kNewClass;
    const Theme* theme = parentLayer == nullptr ? nullptr : parentLayer->ThematicMap().Find(ThemeCode);
    return theme == nullptr ? kNewClass : *theme;
}

bool Entidad::hasScreenPoints() const
{
    return screen_ != nullptr && !points_.empty();
}

std::span<const ScreenPoint> Entidad::ScreenPoints() const
{
    return {screen_.get(), hasScreenPoints() ? points_.size() : 0};
}

bool Entidad::Draw(const BoundingBox& BBox, MapCanvas& Wnd, TipoLayer TipoEnt)
{
    if (!BBox.InterseccionCon(bb)) {
        screen_.reset();
        return false;
    }
    return drawProjected(Wnd, TipoEnt, drawingClass());
}

bool Entidad::drawProjected(MapCanvas& Wnd, TipoLayer TipoEnt, const Theme& theme)
{
    if (TipoEnt < pointlayer || TipoEnt > polygonlayer) {
        return false;
    }
    if (!screen_) {
        screen_ = std::make_unique<ScreenPoint[]>(points_.size());
    }
    Wnd.PlaneToScreen(planePoints(Wnd), {screen_.get(), points_.size()});
    drawStored(Wnd, TipoEnt, theme, true);
    return true;
}

std::span<const Vertex> Entidad::planePoints(const MapCanvas& Wnd)
{
    const std::uint64_t stamp = Wnd.ProjectionStamp();
    if (!plane_ || planeStamp_ != stamp) {
        if (!plane_) {
            plane_ = std::make_unique<Vertex[]>(points_.size());
        }
        constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
        for (std::size_t k = 0; k < points_.size(); ++k) {
            if (!Wnd.ToPlane(points_[k], plane_[k])) {
                plane_[k] = {kNone, kNone};
            }
        }
        planeStamp_ = stamp;
    }
    return {plane_.get(), points_.size()};
}

void Entidad::drawStored(MapCanvas& Wnd, TipoLayer TipoEnt, const Theme& theme, bool setLineStyle) const
{
    switch (static_cast<std::int32_t>(TipoEnt)) {
    case pointlayer:
        Wnd.DrawPoints(ScreenPoints(), theme);
        break;
    case polylinelayer:
    case 3:
        Wnd.DrawPolyline(ScreenPoints(), theme, setLineStyle);
        break;
    case polygonlayer:
        Wnd.DrawPolygon(ScreenPoints(), theme);
        break;
    default:
        break;
    }
}

// Drawing again keeps the surface's line style: only a full drawing sets it.
void Entidad::DrawWOCalc(MapCanvas& Wnd, TipoLayer TipoEnt)
{
    if (!hasScreenPoints()) {
        Draw(Wnd.ViewBox(), Wnd, TipoEnt);
        return;
    }
    drawStored(Wnd, TipoEnt, drawingClass(), false);
}

void Entidad::resaltar(const BoundingBox& BBox, MapCanvas& Wnd, TipoLayer TipoEnt, const Theme& themecolor)
{
    if (!BBox.InterseccionCon(bb)) {
        return;
    }
    if (hasScreenPoints()) {
        drawStored(Wnd, TipoEnt, themecolor, false);
    } else {
        drawProjected(Wnd, TipoEnt, themecolor);
    }
}

void Entidad::DrawDirection(MapCanvas& Wnd) const
{
    if (Direction == 0) {
        return;
    }
    const std::span<const ScreenPoint> screen = ScreenPoints();
    for (std::size_t k = 1; k < screen.size(); ++k) {
        Wnd.DrawDirectionMark(screen[k - 1], screen[k], Direction);
    }
}

void Entidad::DrawEntityLabel(MapCanvas& Wnd) const
{
    if (IDLabel == 0) {
        return;
    }
    const TipoLayer tipo = kind();
    const layer& owner = *parentLayer;
    const Dictionary* label = owner.Labels().Find(IDLabel);
    std::optional<LabelAnchor> anchor;
    if (tipo == pointlayer || tipo == polygonlayer) {
        anchor = LabelAnchor{Centroide(), 0, tipo == pointlayer ? kAlignTopLeft : kAlignAcross};
    } else {
        anchor = firstSegmentAnchor(points_, Wnd);
    }
    if (label == nullptr || !anchor) {
        return;
    }
    Wnd.DrawRotatedText(anchor->position.X, anchor->position.Y, anchor->angle, label->word, owner.lblBold,
                        owner.lblColor, anchor->align);
}

namespace {

// The length of the line through the points, or the area of the ring they
// close, both in pixels; points that did not convert count for nothing.
double screenSize(std::span<const ScreenPoint> points, bool ring)
{
    double size = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const ScreenPoint& a = points[i - 1];
        const ScreenPoint& b = points[i];
        const double part = ring ? (double(a.X) * b.Y - double(b.X) * a.Y) : std::hypot(b.X - a.X, b.Y - a.Y);
        if (std::isfinite(part)) {
            size += part;
        }
    }
    return std::fabs(ring ? size / 2 : size);
}

} // namespace

std::optional<LabelCandidate> Entidad::labelCandidate(const MapCanvas& Wnd)
{
    const Dictionary* label = IDLabel == 0 ? nullptr : parentLayer->Labels().Find(IDLabel);
    if (label == nullptr || label->word.empty() || points_.empty()) {
        return std::nullopt;
    }
    const TipoLayer tipo = kind();
    LabelCandidate candidate{label->word, parentLayer->lblBold, parentLayer->lblColor, tipo, {}, 0, 0};
    candidate.points.resize(points_.size());
    Wnd.PlaneToScreen(planePoints(Wnd), candidate.points);
    candidate.size = screenSize(candidate.points, tipo == polygonlayer);
    if (tipo == pointlayer || tipo == polygonlayer) {
        const Vertex centre = Centroide();
        candidate.points.resize(1);
        Wnd.ToScreen({&centre, 1}, candidate.points);
    }
    return candidate;
}

} // namespace orbelan
