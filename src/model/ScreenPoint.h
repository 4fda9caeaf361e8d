#pragma once

namespace orbelan {

// A vertex converted to the drawing surface: pixels from the top-left
// corner, Y growing downwards. A vertex that could not be projected is
// stored as not-a-number, which the surface skips.
struct ScreenPoint {
    float X = 0;
    float Y = 0;

    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

} // namespace orbelan
