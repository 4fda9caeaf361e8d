#pragma once

namespace orbelan {

// An axis-aligned rectangle in map coordinates. A new box is empty: its
// minima are +1E37 and its maxima -1E37, so it contains no point, intersects
// nothing, and the first Union makes it exactly the rectangle given. The
// fields are free: nothing keeps MinX <= MaxX.
//
// Every test is inclusive: a shared edge or corner counts.
class BoundingBox {
public:
    static constexpr double kEmptyExtent = 1E37;

    double MinY = kEmptyExtent;
    double MaxX = -kEmptyExtent;
    double MinX = kEmptyExtent;
    double MaxY = -kEmptyExtent;

    // This box contains bb.
    bool ContieneA(const BoundingBox& bb) const;
    // This box lies inside bb.
    bool ContenidoPor(const BoundingBox& bb) const;
    // The two boxes overlap on both axes.
    bool InterseccionCon(const BoundingBox& bb) const;
    // Grows this box to include the rectangle; of equal values the box's own
    // is kept.
    void Union(double minimox, double minimoy, double maximox, double maximoy);
    bool PointInBoundingBox(double X, double Y) const;
};

} // namespace orbelan
