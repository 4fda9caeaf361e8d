#include "ProjOracle.h"

#include <proj.h>

#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace orbelan::test {

ProjOracle::ProjOracle(const std::string& definition)
    : pj_(proj_create(PJ_DEFAULT_CTX, definition.c_str()))
{
    if (pj_ == nullptr) {
        throw std::invalid_argument("PROJ refuses " + definition);
    }
}

ProjOracle::~ProjOracle()
{
    proj_destroy(pj_);
}

// A bare PROJ operation takes radians.
std::array<double, 2> ProjOracle::forward(double lon, double lat) const
{
    const PJ_COORD in = proj_coord(ProjectionMath::ToRadians(lon), ProjectionMath::ToRadians(lat), 0.0, 0.0);
    const PJ_COORD out = proj_trans(pj_, PJ_FWD, in);
    if (proj_errno(pj_) != 0 || !std::isfinite(out.v[0])) {
        throw std::domain_error("PROJ cannot project the point");
    }
    return {out.v[0], out.v[1]};
}

std::string ProjOracle::Angle(double degrees)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", ProjectionMath::ToRadians(degrees) * kTrueDegreesPerRadian);
    return text;
}

double GroundDistance(double lon1, double lat1, double lon2, double lat2)
{
    const double radius = 6378137.0 / ProjectionMath::kDegreesPerRadian;
    const double east = std::remainder(lon2 - lon1, 360.0) * std::cos(ProjectionMath::ToRadians(lat1));
    return radius * std::hypot(east, lat2 - lat1);
}

} // namespace orbelan::test
