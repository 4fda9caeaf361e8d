#pragma once

namespace orbelan {

// One vertex: X (longitude) then Y (latitude), 16 bytes, so that a vertex
// list is one contiguous run of Double pairs.
struct Vertex {
    double X = 0;
    double Y = 0;

    friend bool operator==(const Vertex&, const Vertex&) = default;
};

} // namespace orbelan
