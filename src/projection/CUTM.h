#pragma once

#include "projection/CProjection.h"

namespace orbelan {

// Universal Transverse Mercator on an ellipsoid.
//
// The formulas are Snyder's Transverse Mercator series in the form of the
// USGS General Cartographic Transformation Package (GCTP), with that
// package's constants, so that the plane coordinates are the very numbers the
// map data were made with. Within the zone (±3° of its central meridian) they
// agree with the exact Transverse Mercator to well under a millimetre; further
// out the series drifts away from it. Ellipsoids flatter than es = 0.00001 are
// treated as spheres with the closed spherical formulas.
class CUTM final : public CProjection {
public:
    // params[0]: the zone, 1 to 60, negative in the southern hemisphere (false
    // northing 10,000,000 m), rounded to a whole number; params[1]: the scale
    // factor. A zone of 0 or beyond ±60, a missing, infinite or zero parameter,
    // or unusable axes leave the projection as it was.
    bool Init(double r_maj, double r_min, std::span<const double> params) override;
    bool Project(double lon, double lat, double& x, double& y) const override;
    // Points so far from the zone that the footpoint latitude does not settle
    // within the iteration limit cannot be brought back.
    bool Unproject(double x, double y, double& lon, double& lat) const override;

private:
    bool forwardSphere(double deltaLon, double phi, double& x, double& y) const;
    void forwardEllipsoid(double deltaLon, double phi, double& x, double& y) const;
    void inverseSphere(double x, double y, double& lon, double& lat) const;
    bool inverseEllipsoid(double x, double y, double& lon, double& lat) const;

    bool initialised_ = false;
    double r_major_ = 0.0;
    double scale_factor_ = 0.0;
    double lon_center_ = 0.0; // radians
    double lat_origin_ = 0.0; // radians, the equator
    double false_easting_ = 0.0;
    double false_northing_ = 0.0;
    double es_ = 0.0;  // eccentricity squared
    double esp_ = 0.0; // second eccentricity squared
    double e0_ = 0.0;  // e0 to e3: coefficients of the meridian distance
    double e1_ = 0.0;
    double e2_ = 0.0;
    double e3_ = 0.0;
    double ml0_ = 0.0; // meridian distance of the origin
    bool ind_ = false; // the ellipsoid is treated as a sphere
};

} // namespace orbelan
