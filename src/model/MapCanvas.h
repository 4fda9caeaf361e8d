#pragma once

#include "model/BoundingBox.h"
#include "model/ScreenPoint.h"
#include "model/Theme.h"
#include "model/Vertex.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace orbelan {

// The drawing surface of the Viewer as the model's drawing members use it.
// The model decides what is drawn, in which order and with which class; the
// surface converts map coordinates to pixels and puts them on the picture.
//
// Like the control's own surface it keeps a current line style and line
// width: a primitive sets them from the class when it says so, and a line
// drawn again from stored screen points keeps the style set last.
class MapCanvas {
public:
    virtual ~MapCanvas() = default;

    // The visible box in geographic degrees.
    virtual const BoundingBox& ViewBox() const = 0;
    // The screen position of every vertex (longitude, latitude), one per
    // vertex, in order.
    virtual void ToScreen(std::span<const Vertex> vertices, std::span<ScreenPoint> screen) const = 0;
    // The screen position of every point of the projected plane, one per
    // point, in order; a point that is not a number stays one.
    virtual void PlaneToScreen(std::span<const Vertex> plane, std::span<ScreenPoint> screen) const = 0;
    // Names the projection ToPlane goes through: plane positions taken under
    // one stamp stay right while the stamp stays. No two projections share one.
    virtual std::uint64_t ProjectionStamp() const = 0;
    // A geographic point (longitude, latitude) in the map's projected plane
    // and back; false when the projection has no answer for it.
    virtual bool ToPlane(const Vertex& geographic, Vertex& plane) const = 0;
    virtual bool FromPlane(const Vertex& plane, Vertex& geographic) const = 0;

    // One dot per point, DrawWidth wide, in DrawColor; nothing when the
    // class draws no outline (DrawStyle 5).
    virtual void DrawPoints(std::span<const ScreenPoint> points, const Theme& theme) = 0;
    // The segments between consecutive points, in DrawColor, nothing when the
    // class draws no outline. The line width becomes DrawWidth unless that is
    // 0; the line style becomes DrawStyle only when setLineStyle.
    virtual void DrawPolyline(std::span<const ScreenPoint> points, const Theme& theme, bool setLineStyle) = 0;
    // The closed polygon filled in FillStyle and FillColor and outlined in
    // DrawStyle, DrawWidth and DrawColor, all of which become current.
    virtual void DrawPolygon(std::span<const ScreenPoint> points, const Theme& theme) = 0;
    // The arrowhead on the middle of a segment that shows a line's direction:
    // along the segment, or against it for direction -1.
    virtual void DrawDirectionMark(ScreenPoint from, ScreenPoint to, std::int16_t direction) = 0;
    // A label at the geographic point (X, Y), turned angle degrees
    // counter-clockwise, in the label font and color. The point is the
    // text's top-left corner (align 1), the middle of its top side (align 2)
    // or the middle of its starting side (align 3), all as the text turns.
    virtual void DrawRotatedText(double X, double Y, double angle, const std::string& text, bool bold,
                                 std::int32_t color, std::int16_t align) = 0;
    // The raster image of that number over the part of the view it covers,
    // on top of what is drawn so far; nothing when the view has no such image
    // or the image lies wholly outside the view.
    virtual void DrawImage(std::int32_t ImageNumber) = 0;
};

} // namespace orbelan
