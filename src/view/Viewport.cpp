#include "view/Viewport.h"

#include "projection/ProjectionFactory.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>

namespace orbelan {

namespace {

constexpr double kMetresPerKilometre = 1000;

std::uint64_t nextProjectionStamp()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

} // namespace

Viewport::Viewport() = default;

float Viewport::WorldToScreenX(double x) const
{
    return static_cast<float>((x - centre_.x) * scale_ + width_ / 2.0);
}

float Viewport::WorldToScreenY(double y) const
{
    return static_cast<float>((centre_.y - y) * scale_ + height_ / 2.0);
}

double Viewport::ScreenToWorldX(float px) const
{
    return scale_ == 0 ? kNoView : (px - width_ / 2.0) / scale_ + centre_.x;
}

double Viewport::ScreenToWorldY(float py) const
{
    return scale_ == 0 ? kNoView : centre_.y - (py - height_ / 2.0) / scale_;
}

MapPoint Viewport::toMap(double px, double py) const
{
    return {ScreenToWorldX(static_cast<float>(px)), ScreenToWorldY(static_cast<float>(py))};
}

double Viewport::ClampValue(double value, double low, double high)
{
    return std::clamp(value, low, high);
}

bool Viewport::SetView(double x1, double y1, double x2, double y2)
{
    if (std::isnan(x1) || std::isnan(y1) || std::isnan(x2) || std::isnan(y2)) {
        return false;
    }
    x1 = ClampValue(x1, -180, 180);
    x2 = ClampValue(x2, -180, 180);
    y1 = ClampValue(y1, -90, 90);
    y2 = ClampValue(y2, -90, 90);
    const double west = std::min(x1, x2);
    const double east = std::max(x1, x2);
    const double south = std::min(y1, y2);
    const double north = std::max(y1, y2);

    InitProjection(projection_, projectionCode_, west, south, east, north);
    projectionStamp_ = nextProjectionStamp();
    if (!projection_ || !fitProjectedBox(west, south, east, north)) {
        return false;
    }
    viewReady_ = true;
    recomputeViewBox();
    return true;
}

// Centres the view on the box and picks the scale at which all of it fits.
bool Viewport::fitProjectedBox(double west, double south, double east, double north)
{
    MapPoint centre = centre_;
    if (!project(west + (east - west) / 2, south + (north - south) / 2, centre)) {
        return false;
    }
    std::array<MapPoint, 4> corners{};
    const std::array<MapPoint, 4> geographic = {{{west, south}, {west, north}, {east, north}, {east, south}}};
    BoundingBox projected;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (!project(geographic[i].x, geographic[i].y, corners[i])) {
            return false;
        }
        projected.Union(corners[i].x, corners[i].y, corners[i].x, corners[i].y);
    }
    const double scale = std::min(width_ / (projected.MaxX - projected.MinX),
                                  height_ / (projected.MaxY - projected.MinY));
    // A box that is a point on the screen, or a control without size, has no scale.
    if (!std::isfinite(scale) || scale <= 0) {
        return false;
    }
    centre_ = centre;
    corners_ = corners;
    projectedViewBox_ = projected;
    scale_ = static_cast<float>(scale);
    return true;
}

// The visible box from the screen's corners and the middles of its top and
// bottom edges, which catch the bulge of curved parallels.
void Viewport::recomputeViewBox()
{
    const float w = static_cast<float>(width_);
    const float h = static_cast<float>(height_);
    const std::array<std::array<float, 2>, 6> pixels = {{{0, 0}, {0, h}, {w, 0}, {w, h}, {w / 2, h}, {w / 2, 0}}};
    BoundingBox box;
    for (const auto& [px, py] : pixels) {
        double lon = 0;
        double lat = 0;
        if (screenToGeographic(px, py, lon, lat)) {
            box.Union(lon, lat, lon, lat);
        }
    }
    viewBox_ = box;
}

bool Viewport::zoomAbout(float factor, MapPoint centre)
{
    return factor > 0 && place(centre, static_cast<double>(scale_) * factor);
}

// The new centre lies between the anchor and the old centre, so that the
// anchor's map point keeps its pixel at the new scale.
bool Viewport::zoomAboutPixel(float factor, double px, double py)
{
    const MapPoint under = toMap(px, py);
    return zoomAbout(factor, {under.x + (centre_.x - under.x) / factor, under.y + (centre_.y - under.y) / factor});
}

bool Viewport::drag(MapPoint from, MapPoint to)
{
    if (from.x == to.x && from.y == to.y) {
        return false;
    }
    return centreOn({centre_.x + (from.x - to.x), centre_.y + (from.y - to.y)});
}

bool Viewport::moveByShares(double eastShare, double northShare)
{
    if (scale_ == 0) {
        return false;
    }
    return centreOn({centre_.x + eastShare * width_ / scale_, centre_.y + northShare * height_ / scale_});
}

bool Viewport::centreOn(MapPoint centre)
{
    return place(centre, scale_);
}

bool Viewport::place(MapPoint centre, double scale)
{
    const bool representable = std::isfinite(scale) && scale > 0 && scale <= std::numeric_limits<float>::max() &&
                               std::isfinite(centre.x) && std::isfinite(centre.y);
    if (!viewReady_ || !representable || static_cast<float>(scale) == 0 || !onGlobe(centre)) {
        return false;
    }
    centre_ = centre;
    scale_ = static_cast<float>(scale);
    recomputeViewBox();
    return true;
}

// A centre past ±180 or ±90 degrees is brought back to the edge, as SetView
// clamps its boxes; a centre already on the globe is left exactly as it is.
bool Viewport::onGlobe(MapPoint& centre) const
{
    double lon = 0;
    double lat = 0;
    if (!unproject(centre, lon, lat)) {
        return false;
    }
    const double clampedLon = ClampValue(lon, -180, 180);
    const double clampedLat = ClampValue(lat, -90, 90);
    return (clampedLon == lon && clampedLat == lat) || project(clampedLon, clampedLat, centre);
}

bool Viewport::unprojectBoth(MapPoint a, MapPoint b, MapPoint& geographicA, MapPoint& geographicB) const
{
    return unproject(a, geographicA.x, geographicA.y) && unproject(b, geographicB.x, geographicB.y);
}

// The corners stay as given: SetView orders them.
bool Viewport::geographicWindow(MapPoint corner, MapPoint opposite, BoundingBox& box) const
{
    MapPoint first;
    MapPoint second;
    if (!unprojectBoth(corner, opposite, first, second) || first.x == second.x || first.y == second.y) {
        return false;
    }
    box.MinX = first.x;
    box.MinY = first.y;
    box.MaxX = second.x;
    box.MaxY = second.y;
    return true;
}

void Viewport::setSize(int width, int height)
{
    width_ = std::max(width, 0);
    height_ = std::max(height, 0);
}

bool Viewport::resize(int width, int height)
{
    setSize(width, height);
    if (!viewReady_) {
        return false;
    }
    recomputeViewBox();
    return true;
}

float Viewport::CurrentZoom() const { return heightOf(viewBox_); }

float Viewport::heightOf(const BoundingBox& box) const
{
    const double middle = box.MinX + (box.MaxX - box.MinX) / 2;
    MapPoint top;
    MapPoint bottom;
    if (!project(middle, box.MaxY, top) || !project(middle, box.MinY, bottom)) {
        return 0;
    }
    return static_cast<float>(std::abs(top.y - bottom.y) / kMetresPerKilometre);
}

bool Viewport::project(double lon, double lat, MapPoint& point) const
{
    return projection_ && projection_->Project(lon, lat, point.x, point.y);
}

bool Viewport::unproject(MapPoint point, double& lon, double& lat) const
{
    return projection_ && projection_->Unproject(point.x, point.y, lon, lat);
}

bool Viewport::screenToGeographic(float px, float py, double& lon, double& lat) const
{
    return scale_ != 0 && unproject({ScreenToWorldX(px), ScreenToWorldY(py)}, lon, lat);
}

} // namespace orbelan
