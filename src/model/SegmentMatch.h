#pragma once

#include "model/Vertex.h"

namespace orbelan {

// The answer of a nearest-segment search: the signed distance and the two
// ends of the segment, `from` being the vertex nearest to the point.
struct SegmentMatch {
    double distance = 0;
    Vertex from;
    Vertex to;
};

} // namespace orbelan
