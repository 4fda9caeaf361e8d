#pragma once

#include "model/BoundingBox.h"
#include "model/LabelCandidate.h"
#include "model/ScreenPoint.h"
#include "model/SegmentMatch.h"
#include "model/TipoLayer.h"
#include "model/Vertex.h"
#include "model/VertexMatch.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orbelan {

class layer;
class MapCanvas;
struct Theme;

// One map element: a point, a polyline or a polygon. Its kind is not stored
// here but read from the owning layer's Tipo whenever a query depends on it;
// those queries raise std::logic_error for an entity without a layer.
//
// Distances are in the stored coordinate units (degrees). Vertex positions
// are 0-based here; the host sees them 1-based.
class Entidad {
public:
    // Sentinel distances: no segment, no vertex, not a candidate at all.
    static constexpr double kNoSegment = 1E30;
    static constexpr double kNoVertex = 1E38;

    // Extent of the vertices. It only ever grows: see CalculateBoundingBox.
    BoundingBox bb;
    std::int32_t ID = 0;
    layer* parentLayer = nullptr;
    // The value of the layer's ThematicField from which the class is computed.
    std::string ThemeValue;
    // Key of the entity's class in the layer's ThematicMap; 1 is the default.
    std::int32_t ThemeCode = 0;
    // Position of the label text in the layer's Labels; 0 for none.
    std::int32_t IDLabel = 0;
    std::int16_t Direction = 0;

    // The number of vertices.
    std::int32_t UboundPoints() const { return static_cast<std::int32_t>(points_.size()); }
    std::span<const Vertex> Points() const { return points_; }
    std::vector<Vertex> GetPoints() const { return points_; }
    // Copies the vertices. The box is left alone: call CalculateBoundingBox
    // afterwards, as every hit test trusts the box to cover the vertices.
    void SetPoints(std::span<const Vertex> points);

    // Grows bb over every vertex (never shrinking it first), then grows the
    // layer's bb by the entity's.
    void CalculateBoundingBox();

    // Distance used to pick the entity with the mouse: to the point itself,
    // to the nearest segment whose perpendicular foot falls on it (kNoSegment
    // when there is none; ends are not considered), or kNoSegment for a
    // polygon, which is hit by PointInPolygon instead.
    double DistPuntoAEntidad(double X, double Y) const;
    // The vertex nearest to the point (the first of equal ones) and the
    // nearer of its two segments, ties going to the following segment.
    // kNoSegment for a point entity or when no segment qualifies.
    SegmentMatch GetNearestSegment(double xp, double yp) const;
    // The nearest vertex, the last of equal ones; kNoVertex when there is none.
    VertexMatch NearestVertex(double X, double Y) const;
    // Inside by the box, an exact vertex hit, or an odd count of crossings of
    // the ray towards +X, each crossing rounded to single precision. A point
    // on a horizontal bottom edge crosses nothing and is outside.
    bool PointInPolygon(double X, double Y) const;
    // Where the entity's label goes: the point, the mean of a line's vertices,
    // or the area centroid of a polygon. A polygon without area gives the
    // mean of its vertices; an entity without vertices (0, 0).
    Vertex Centroide() const;

    // Distance from P to the line through the segment, measured at the
    // perpendicular foot; negative when the foot lies outside the segment,
    // unless alwaysPositive. kNoSegment for a segment of length 0.
    static double SegmentDistance(double px, double py, double x1, double y1, double x2, double y2,
                                  bool alwaysPositive);
    static double PointDistance(double x1, double y1, double x2, double y2);

    // Drawing. The entity is drawn in the style of its class (ThemeCode in
    // the layer's ThematicMap; a class that does not exist draws in the
    // style of a new Theme) as points, as the segments of a line (kind 2 or
    // 3) or as a filled polygon. A full drawing keeps the screen position of
    // every vertex, so that drawing again, highlighting and the direction
    // marks need no projection.
    //
    // Draws the entity when its box meets BBox (geographic degrees) and says
    // whether it did; outside the view the stored positions are dropped.
    bool Draw(const BoundingBox& BBox, MapCanvas& Wnd, TipoLayer TipoEnt);
    // Draws again from the stored positions; an entity without them gets a
    // full Draw for the surface's current view.
    void DrawWOCalc(MapCanvas& Wnd, TipoLayer TipoEnt);
    // Draws the entity in the given class when its box meets BBox, from the
    // stored positions when it has them.
    void resaltar(const BoundingBox& BBox, MapCanvas& Wnd, TipoLayer TipoEnt, const Theme& themecolor);
    // A direction mark on every segment between stored positions, unless
    // the entity's Direction is 0.
    void DrawDirection(MapCanvas& Wnd) const;
    // The entity's label text, when it has one (IDLabel is not 0), in the
    // layer's label colour and weight: a point's starts at the point, a
    // polygon's at its centroid, centred across the text; a line's starts at
    // the middle of its first segment and runs along it (upwards when the
    // segment is vertical or the line has one vertex).
    void DrawEntityLabel(MapCanvas& Wnd) const;
    // The entity's label as a candidate for placement, its geometry on the
    // surface; none when the label has no text or no vertex converts.
    std::optional<LabelCandidate> labelCandidate(const MapCanvas& Wnd);
    // The positions of the last full drawing; empty when there is none.
    std::span<const ScreenPoint> ScreenPoints() const;

private:
    TipoLayer kind() const;
    double lineDistance(double X, double Y) const;
    std::optional<std::size_t> firstNearestVertex(double xp, double yp) const;
    double neighbourDistance(double xp, double yp, std::size_t vertex, std::size_t neighbour) const;
    Vertex polygonCentroid() const;
    Vertex vertexMean() const;
    const Theme& drawingClass() const;
    bool hasScreenPoints() const;
    bool drawProjected(MapCanvas& Wnd, TipoLayer TipoEnt, const Theme& theme);
    std::span<const Vertex> planePoints(const MapCanvas& Wnd);
    void drawStored(MapCanvas& Wnd, TipoLayer TipoEnt, const Theme& theme, bool setLineStyle) const;

    std::vector<Vertex> points_;
    // One position per vertex while the entity holds a drawing (SetPoints,
    // the only way the vertices change, drops it); a bare array rather than
    // a vector keeps each entity 16 B smaller.
    std::unique_ptr<ScreenPoint[]> screen_;
    // The vertices in the projected plane (not a number where the projection
    // has none), kept across redraws while the projection keeps planeStamp_:
    // a redraw then only moves them onto the screen. SetPoints drops them.
    std::unique_ptr<Vertex[]> plane_;
    std::uint64_t planeStamp_ = 0;
};

} // namespace orbelan
