#include "import/AntimeridianCut.h"

#include <algorithm>
#include <cmath>

namespace orbelan::server {

namespace {

using messages::WirePoint;

constexpr double kHalfTurn = 180.0;
constexpr double kTurn = 360.0;
// Rings wider than this after unwrapping are left as they are.
constexpr double kWidestUnwrapped = 3.0 * kTurn;

// The longitude, moved by whole turns, that lies within half a turn of `near`.
double nearest(double longitude, double near)
{
    return longitude - kTurn * std::round((longitude - near) / kTurn);
}

// The ring with every step shorter than half a turn in longitude. When its
// end then lies a turn away from its start, it circles a pole: it is closed
// through that pole (the one on the side of its vertices' mean latitude).
Ring unwrapped(const Ring& ring)
{
    Ring path{ring.front()};
    double latitudes = 0.0;
    for (const WirePoint& point : ring) {
        path.push_back({nearest(point.x, path.back().x), point.y});
        latitudes += point.y;
    }
    path.erase(path.begin());
    const WirePoint closing{nearest(ring.front().x, path.back().x), ring.front().y};
    if (closing.x != path.front().x) {
        const double pole = latitudes < 0.0 ? -90.0 : 90.0;
        if (closing != path.back()) {
            path.push_back(closing);
        }
        path.push_back({closing.x, pole});
        path.push_back({path.front().x, pole});
        path.push_back(path.front());
    }
    return path;
}

// The part of a closed ring on the side of a vertical line where
// `inside(x)` holds (Sutherland-Hodgman), closed again.
template <typename Inside>
Ring clipped(const Ring& ring, double line, Inside inside)
{
    Ring out;
    for (std::size_t k = 0; k + 1 < ring.size(); ++k) {
        const WirePoint& from = ring[k];
        const WirePoint& to = ring[k + 1];
        if (inside(from.x)) {
            out.push_back(from);
        }
        if (inside(from.x) != inside(to.x)) {
            const double t = (line - from.x) / (to.x - from.x);
            out.push_back({line, from.y + t * (to.y - from.y)});
        }
    }
    if (!out.empty()) {
        out.push_back(out.front());
    }
    return out;
}

double twiceArea(const Ring& ring)
{
    double sum = 0.0;
    for (std::size_t k = 0; k + 1 < ring.size(); ++k) {
        sum += ring[k].x * ring[k + 1].y - ring[k + 1].x * ring[k].y;
    }
    return sum;
}

// The piece of the unwrapped ring within turn `turn`, moved back by it.
Ring pieceInTurn(const Ring& path, double turn)
{
    const double west = turn * kTurn - kHalfTurn;
    const double east = turn * kTurn + kHalfTurn;
    Ring piece = clipped(clipped(path, west, [west](double x) { return x >= west; }), east,
                         [east](double x) { return x <= east; });
    for (WirePoint& point : piece) {
        point.x -= turn * kTurn;
    }
    return piece;
}

bool finite(const Ring& ring)
{
    return std::all_of(ring.begin(), ring.end(),
                       [](const WirePoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

} // namespace

bool AntimeridianCut::aroundPole(const Ring& ring)
{
    return ring.size() >= 3 && finite(ring) && unwrapped(ring).size() > ring.size();
}

std::vector<Ring> AntimeridianCut::pieces(const Ring& ring)
{
    if (ring.size() < 3 || !finite(ring)) {
        return {ring};
    }
    Ring path = unwrapped(ring);
    const bool aroundPole = path.size() > ring.size();
    if (path.back().x != path.front().x || path.back().y != path.front().y) {
        path.push_back(path.front());
    }
    const auto [west, east] = std::minmax_element(
        path.begin(), path.end(), [](const WirePoint& a, const WirePoint& b) { return a.x < b.x; });
    const bool crosses = west->x < -kHalfTurn || east->x > kHalfTurn;
    if ((!crosses && !aroundPole) || !finite(path) || east->x - west->x > kWidestUnwrapped) {
        return {ring};
    }
    std::vector<Ring> pieces;
    const double last = std::ceil((east->x - kHalfTurn) / kTurn);
    for (double turn = std::floor((west->x + kHalfTurn) / kTurn); turn <= last; ++turn) {
        Ring piece = pieceInTurn(path, turn);
        if (piece.size() >= 4 && twiceArea(piece) != 0.0) {
            pieces.push_back(std::move(piece));
        }
    }
    return pieces.empty() ? std::vector<Ring>{ring} : pieces;
}

} // namespace orbelan::server
