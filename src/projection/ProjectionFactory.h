#pragma once

#include "projection/CProjection.h"

#include <memory>

namespace orbelan {

// Sets up the map's projection for the geographic box being shown, as the
// view does every time it is set. code is the map's Projection code:
//   0          latitude/longitude;
//   1          Albers equal-area on WGS 84, standard parallels at the box's
//              southern and northern edges, origin at its centre, false
//              easting and northing 5,000,000 m;
//   40 to 160  UTM on WGS 84, zone code - 100 (negative: southern hemisphere),
//              scale factor 0.9996; code 100, zone 0, is refused by the zone;
//   any other  no projection: `projection` is left as it is.
// The box's corners (x1, y1) and (x2, y2) may come in any order; they are
// clamped to ±180° and ±90° first.
//
// A projection of the kind the code selects is kept and initialised again,
// so that parameters it refuses leave its previous state; one of another kind
// (or none) is replaced by a new one.
void InitProjection(std::unique_ptr<CProjection>& projection, int code, double x1, double y1, double x2,
                    double y2);

} // namespace orbelan
