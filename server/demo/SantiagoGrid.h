#pragma once

#include "protocol/messages/CellElement.h"
#include "demo/DemoRandom.h"

#include <vector>

namespace orbelan::server {

// The street grid of the generated Santiago: intersections on a slightly
// irregular lattice of blocks about 125 m square around the city centre.
class SantiagoGrid {
public:
    static constexpr int kBlocksEastWest = 64;
    static constexpr int kBlocksNorthSouth = 52;

    explicit SantiagoGrid(DemoRandom& random);

    // Intersection i (0 .. kBlocksEastWest) from the west, j from the south.
    messages::WirePoint node(int i, int j) const;
    // The parcel (a, b) of the block whose south-west corner is node (i, j),
    // each block split into parcelsPerSide² parcels set back from the street;
    // a closed ring.
    std::vector<messages::WirePoint> parcel(int i, int j, int a, int b, int parcelsPerSide) const;
    // A point of the block, u and v from 0 to 1 across it.
    messages::WirePoint insideBlock(int i, int j, double u, double v) const;

private:
    std::vector<messages::WirePoint> nodes_;
};

} // namespace orbelan::server
