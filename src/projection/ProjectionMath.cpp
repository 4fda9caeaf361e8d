#include "projection/ProjectionMath.h"

#include <algorithm>
#include <cmath>

namespace orbelan::ProjectionMath {

double Sign(double x)
{
    return x > 0.0 ? 1.0 : (x < 0.0 ? -1.0 : 0.0);
}

bool IsGeographic(double lon, double lat)
{
    return std::isfinite(lon) && std::isfinite(lat) && std::abs(lat) <= 90.0;
}

bool AreAxes(double r_maj, double r_min)
{
    return std::isfinite(r_maj) && std::isfinite(r_min) && r_min > 0.0 && r_min <= r_maj;
}

bool StoreIfFinite(double a, double b, double& outA, double& outB)
{
    if (!std::isfinite(a) || !std::isfinite(b)) {
        return false;
    }
    outA = a;
    outB = b;
    return true;
}

double ArcCos(double x, double halfPi)
{
    if (!(std::abs(x) < 1.0)) {
        return 0.0;
    }
    return std::atan(-x / std::sqrt(1.0 - x * x)) + halfPi;
}

double asinz(double x)
{
    return std::asin(std::clamp(x, -1.0, 1.0));
}

} // namespace orbelan::ProjectionMath
