#pragma once

#include "model/BoundingBox.h"
#include "projection/CProjection.h"
#include "model/ParentMap.h"

#include <array>
#include <cstdint>
#include <memory>

namespace orbelan {

// A point in the map's projected plane, or a geographic (longitude, latitude) pair.
struct MapPoint {
    double x = 0;
    double y = 0;
};

// Which piece of the map the control shows and how map coordinates become
// pixels: the view centre and scale in the projected plane, the visible box
// in geographic degrees, and the projection they go through. It holds no
// widget, so every formula is checked without a window.
//
// Screen pixels have their origin at the top-left corner and grow downwards;
// projected Y grows upwards. A view exists once SetView has fitted a box;
// before that the scale is 0 and screen-to-map conversions give 1e37.
//
// The layers of a map ask their view for its height and scale, to decide
// whether they show; the view has no raster images of its own.
class Viewport : public ParentMap {
public:
    static constexpr double kNoView = 1e37;

    Viewport();

    // The map's projection code (0 latitude/longitude, 1 Albers, 40 to 160
    // UTM); it takes effect at the next SetView.
    int Projection() const { return projectionCode_; }
    void setProjection(int code) { projectionCode_ = code; }

    float WorldToScreenX(double x) const;
    float WorldToScreenY(double y) const;
    double ScreenToWorldX(float px) const;
    double ScreenToWorldY(float py) const;
    // The point of the projected plane under a pixel.
    MapPoint toMap(double px, double py) const;
    static double ClampValue(double value, double low, double high);

    // Fits the geographic box (corners in any order, clamped to ±180/±90)
    // into the control. False, with the view unchanged, when the map has no
    // projection yet or the box has no extent on the screen at all.
    bool SetView(double x1, double y1, double x2, double y2);

    // Relative navigation works in the projected plane and keeps the
    // projection as it is, so that zooming in and out again, or moving and
    // moving back, returns to the same view on every projection. Each needs
    // a view, and leaves it unchanged (false) when the result would have no
    // finite scale or its centre no geographic position.

    // Multiplies the scale by factor and centres the view on the point.
    bool zoomAbout(float factor, MapPoint centre);
    // Multiplies the scale by factor; the point under the pixel stays put.
    bool zoomAboutPixel(float factor, double px, double py);
    // Moves the view so that the map point `from` comes under the pixel
    // where `to` is now. False when the two are the same point.
    bool drag(MapPoint from, MapPoint to);
    // Moves the view by shares of its width and height (east and north positive).
    bool moveByShares(double eastShare, double northShare);
    // Centres the view on the point; the scale stays.
    bool centreOn(MapPoint centre);
    // The geographic box between two points of the plane. False when either
    // has no geographic position or the box has no width or no height.
    bool geographicWindow(MapPoint corner, MapPoint opposite, BoundingBox& box) const;
    // The control's size in pixels; centre and scale stay.
    void setSize(int width, int height);
    // The control's new size: centre and scale stay, and a larger control
    // shows more of the map. False when there is no view yet.
    bool resize(int width, int height);
    // Height of the view in kilometres (in degrees / 1000 for latitude/longitude).
    float CurrentZoom() const;
    // The same for any geographic box: its height through the middle, in kilometres.
    float heightOf(const BoundingBox& box) const;

    bool project(double lon, double lat, MapPoint& point) const;
    bool unproject(MapPoint point, double& lon, double& lat) const;
    // The geographic position of a pixel; false when no view exists.
    bool screenToGeographic(float px, float py, double& lon, double& lat) const;

    bool viewReady() const { return viewReady_; }
    // Changes whenever the projection is set up again; no two set-ups, in
    // any view, share one.
    std::uint64_t projectionStamp() const { return projectionStamp_; }
    MapPoint centre() const { return centre_; }
    float scale() const { return scale_; }
    int pixelWidth() const { return width_; }
    int pixelHeight() const { return height_; }

    std::int32_t Height() const override { return height_; }
    float DrawScale() const override { return scale_; }
    // Raster images come with their layers; until then no name has one.
    std::int32_t ImageNumberOf(std::string_view) const override { return -1; }
    const BoundingBox& viewBox() const { return viewBox_; }
    const BoundingBox& projectedViewBox() const { return projectedViewBox_; }
    const std::array<MapPoint, 4>& corners() const { return corners_; }

private:
    bool fitProjectedBox(double west, double south, double east, double north);
    bool place(MapPoint centre, double scale);
    // The centre, moved back onto the globe when it has left it.
    bool onGlobe(MapPoint& centre) const;
    // The geographic positions of two points of the plane; false when either has none.
    bool unprojectBoth(MapPoint a, MapPoint b, MapPoint& geographicA, MapPoint& geographicB) const;
    void recomputeViewBox();

    std::unique_ptr<CProjection> projection_;
    int projectionCode_ = 0;
    std::uint64_t projectionStamp_ = 0;
    MapPoint centre_;
    float scale_ = 0;
    int width_ = 0;
    int height_ = 0;
    bool viewReady_ = false;
    BoundingBox viewBox_;
    BoundingBox projectedViewBox_;
    std::array<MapPoint, 4> corners_{};
};

} // namespace orbelan
