#pragma once

#include "projection/CProjection.h"

namespace orbelan {

// The plane of latitude/longitude maps: X is the longitude and Y the latitude,
// both in degrees, unchanged in either direction.
class CLatLon final : public CProjection {
public:
    // There is nothing to set up; the arguments are ignored.
    bool Init(double r_maj, double r_min, std::span<const double> params) override;
    bool Project(double lon, double lat, double& x, double& y) const override;
    bool Unproject(double x, double y, double& lon, double& lat) const override;
};

} // namespace orbelan
