#include "projection/ProjectionFactory.h"

#include "projection/CAlbers.h"
#include "projection/CLatLon.h"
#include "projection/CUTM.h"

#include <algorithm>
#include <array>

namespace orbelan {

namespace {

// WGS 84.
constexpr double kSemiMajorAxis = 6378137.0;
constexpr double kSemiMinorAxis = 6356752.3142;
constexpr double kAlbersFalseOrigin = 5000000.0;
constexpr double kUtmScaleFactor = 0.9996;
constexpr int kUtmZoneOffset = 100;
constexpr int kFirstUtmCode = 40;
constexpr int kLastUtmCode = 160;

// The projection held, made a Kind first when it is of another kind.
template <class Kind>
CProjection& projectionOfKind(std::unique_ptr<CProjection>& projection)
{
    if (dynamic_cast<Kind*>(projection.get()) == nullptr) {
        projection = std::make_unique<Kind>();
    }
    return *projection;
}

// The standard parallels are the clamped box's southern and northern edges
// and the origin is its centre.
std::array<double, 6> albersParameters(double x1, double y1, double x2, double y2)
{
    x1 = std::clamp(x1, -180.0, 180.0);
    x2 = std::clamp(x2, -180.0, 180.0);
    y1 = std::clamp(y1, -90.0, 90.0);
    y2 = std::clamp(y2, -90.0, 90.0);
    const double west = std::min(x1, x2);
    const double east = std::max(x1, x2);
    const double south = std::min(y1, y2);
    const double north = std::max(y1, y2);
    return {south, north, west + (east - west) / 2.0, south + (north - south) / 2.0, kAlbersFalseOrigin,
            kAlbersFalseOrigin};
}

} // namespace

void InitProjection(std::unique_ptr<CProjection>& projection, int code, double x1, double y1, double x2,
                    double y2)
{
    if (code == 0) {
        projectionOfKind<CLatLon>(projection).Init(0.0, 0.0, {});
    } else if (code == 1) {
        projectionOfKind<CAlbers>(projection).Init(kSemiMajorAxis, kSemiMinorAxis,
                                                   albersParameters(x1, y1, x2, y2));
    } else if (code >= kFirstUtmCode && code <= kLastUtmCode) {
        const std::array<double, 2> params = {static_cast<double>(code - kUtmZoneOffset), kUtmScaleFactor};
        projectionOfKind<CUTM>(projection).Init(kSemiMajorAxis, kSemiMinorAxis, params);
    }
}

} // namespace orbelan
