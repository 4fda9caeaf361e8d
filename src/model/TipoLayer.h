#pragma once

#include <cstdint>

namespace orbelan {

// The geometry kind of a layer, and so of every entity in it. The type is
// wide enough to hold any Long the server sends: there is no kind 3, and code
// that branches on the kind treats 3 as a line.
enum TipoLayer : std::int32_t {
    pointlayer = 1,
    polylinelayer = 2,
    polygonlayer = 4,
    ImageLayer = 5,
};

} // namespace orbelan
