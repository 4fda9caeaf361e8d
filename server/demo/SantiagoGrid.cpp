#include "demo/SantiagoGrid.h"

namespace orbelan::server {

namespace {

constexpr double kWest = -70.705;
constexpr double kSouth = -33.485;
constexpr double kBlockWidth = 0.00135;  // degrees of longitude, about 125 m here
constexpr double kBlockHeight = 0.00112; // degrees of latitude, about 124 m
constexpr double kJitter = 0.00007;
// The share of a block's side taken by the street on each side.
constexpr double kSetback = 0.08;

} // namespace

SantiagoGrid::SantiagoGrid(DemoRandom& random)
{
    nodes_.reserve((kBlocksEastWest + 1) * (kBlocksNorthSouth + 1));
    for (int j = 0; j <= kBlocksNorthSouth; ++j) {
        for (int i = 0; i <= kBlocksEastWest; ++i) {
            nodes_.push_back({kWest + i * kBlockWidth + random.uniform(-kJitter, kJitter),
                              kSouth + j * kBlockHeight + random.uniform(-kJitter, kJitter)});
        }
    }
}

messages::WirePoint SantiagoGrid::node(int i, int j) const
{
    return nodes_[static_cast<std::size_t>(j * (kBlocksEastWest + 1) + i)];
}

messages::WirePoint SantiagoGrid::insideBlock(int i, int j, double u, double v) const
{
    const messages::WirePoint sw = node(i, j);
    const messages::WirePoint se = node(i + 1, j);
    const messages::WirePoint ne = node(i + 1, j + 1);
    const messages::WirePoint nw = node(i, j + 1);
    const double x =
        (1 - u) * (1 - v) * sw.x + u * (1 - v) * se.x + u * v * ne.x + (1 - u) * v * nw.x;
    const double y =
        (1 - u) * (1 - v) * sw.y + u * (1 - v) * se.y + u * v * ne.y + (1 - u) * v * nw.y;
    return {x, y};
}

std::vector<messages::WirePoint> SantiagoGrid::parcel(int i, int j, int a, int b,
                                                      int parcelsPerSide) const
{
    const double step = (1.0 - 2 * kSetback) / parcelsPerSide;
    const double u0 = kSetback + a * step;
    const double v0 = kSetback + b * step;
    const double u1 = u0 + step;
    const double v1 = v0 + step;
    return {insideBlock(i, j, u0, v0), insideBlock(i, j, u1, v0), insideBlock(i, j, u1, v1),
            insideBlock(i, j, u0, v1), insideBlock(i, j, u0, v0)};
}

} // namespace orbelan::server
