#include "projection/CLatLon.h"

#include "projection/ProjectionMath.h"

namespace orbelan {

bool CLatLon::Init(double, double, std::span<const double>)
{
    return true;
}

// Values that are not numbers are refused like in the other projections, so
// that a view never receives one whatever the map's projection.
bool CLatLon::Project(double lon, double lat, double& x, double& y) const
{
    return ProjectionMath::StoreIfFinite(lon, lat, x, y);
}

bool CLatLon::Unproject(double x, double y, double& lon, double& lat) const
{
    return ProjectionMath::StoreIfFinite(x, y, lon, lat);
}

} // namespace orbelan
