#pragma once

#include "projection/CProjection.h"

#include <optional>

namespace orbelan {

// Albers equal-area conic projection on an ellipsoid, with two standard
// parallels: Snyder's formulas in the form of the USGS General Cartographic
// Transformation Package (GCTP).
//
// Maps of this kind take the standard parallels from the southern and
// northern edges of the box being shown, so a box that straddles the equator
// evenly gives parallels symmetric about it. The cone then opens into a
// cylinder: its constant ns0 is 0 and the conic formulas divide by it. Such
// boxes (and those within a hair of them, where the division loses every
// digit) are drawn with the cone's limit, the cylindrical equal-area
// projection true to scale along the standard parallels. It joins the nearby
// cones without a visible seam and keeps every point finite.
class CAlbers final : public CProjection {
public:
    // params[0], params[1]: the standard parallels; params[2]: the central
    // meridian; params[3]: the latitude of the origin (all in degrees);
    // params[4], params[5]: false easting and false northing (metres).
    // Missing or infinite parameters, latitudes beyond ±90° or unusable axes
    // leave the projection as it was.
    bool Init(double r_maj, double r_min, std::span<const double> params) override;
    bool Project(double lon, double lat, double& x, double& y) const override;
    // Points beyond the pole, where no latitude exists, cannot be brought back.
    bool Unproject(double x, double y, double& lon, double& lat) const override;

private:
    std::optional<double> latitudeOf(double qs) const;

    bool initialised_ = false;
    bool cylinder_ = false; // the parallels are symmetric: the cone's limit is used
    double r_major_ = 0.0;
    double lon_center_ = 0.0; // radians
    double false_easting_ = 0.0;
    double false_northing_ = 0.0;
    double es_ = 0.0; // eccentricity squared
    double e3_ = 0.0; // eccentricity
    double ns0_ = 0.0; // cone constant
    double c_ = 0.0;
    double rh_ = 0.0;  // radius of the origin's parallel on the cone
    double qs0_ = 0.0; // q of the origin, where the cylinder's northings start
    double k0_ = 0.0;  // the cylinder's scale along the standard parallels
};

} // namespace orbelan
