#pragma once

#include "projection/ProjectionMath.h"

#include <array>
#include <limits>
#include <string>

struct PJconsts;

namespace orbelan::test {

// The WGS 84 axes the maps use, and a value that is not a number.
inline constexpr double kMajor = 6378137.0;
inline constexpr double kMinor = 6356752.3142;
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// PROJ as the reference. Angles are degrees of our own factor, so that PROJ
// works with the very radians our projections do and only the formulas are
// compared.
class ProjOracle {
public:
    static constexpr double kTrueDegreesPerRadian = 57.29577951308232;

    explicit ProjOracle(const std::string& definition);
    ~ProjOracle();
    ProjOracle(const ProjOracle&) = delete;
    ProjOracle& operator=(const ProjOracle&) = delete;

    std::array<double, 2> forward(double lon, double lat) const;
    // An angle of a definition, written so that PROJ reads the same radians.
    static std::string Angle(double degrees);

private:
    PJconsts* pj_;
};

// Metres on the ground between two nearby points, across the antimeridian too.
double GroundDistance(double lon1, double lat1, double lon2, double lat2);

} // namespace orbelan::test
