#pragma once

#include "model/Vertex.h"

namespace orbelan {

// The answer of a nearest-vertex search: how far, and which vertex.
struct VertexMatch {
    double distance = 0;
    Vertex vertex;
};

} // namespace orbelan
