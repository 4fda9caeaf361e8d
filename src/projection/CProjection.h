#pragma once

#include <span>

namespace orbelan {

// How the map's geographic coordinates (longitude as X, latitude as Y, in
// degrees) reach the plane on which the view draws, and back.
//
// Angles cross this interface in degrees; each projection works in radians
// inside. A point that cannot be projected (not a number, off the globe, at
// infinity, or a value the formulas cannot bring back) leaves the outputs as
// they were and gives false, so nothing that is not a finite number ever
// reaches the view.
class CProjection {
public:
    virtual ~CProjection() = default;

    // r_maj, r_min: the ellipsoid's semi-major and semi-minor axes in metres.
    // params: the projection's own parameters, indexed from 0. Parameters the
    // projection cannot use leave it in its previous state; the result says
    // whether it was set.
    virtual bool Init(double r_maj, double r_min, std::span<const double> params) = 0;
    // Longitude and latitude in degrees to plane coordinates.
    virtual bool Project(double lon, double lat, double& x, double& y) const = 0;
    // Plane coordinates to longitude and latitude in degrees.
    virtual bool Unproject(double x, double y, double& lon, double& lat) const = 0;
};

} // namespace orbelan
