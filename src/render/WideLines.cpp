#include "render/WideLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orbelan {

void WideLines::setPen(QRgb color, double width)
{
    color_ = color;
    reach_ = width / 2 + 0.5;
}

// Walks the longer axis of the segment, ends and caps included; at each
// step only the pixels across the line that it can reach are measured.
void WideLines::segment(QPointF from, QPointF to)
{
    const bool steep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
    // Along the longer axis as "u", across it as "v".
    QPointF a = steep ? QPointF(from.y(), from.x()) : from;
    QPointF b = steep ? QPointF(to.y(), to.x()) : to;
    if (a.x() > b.x()) {
        std::swap(a, b);
    }
    const QPointF d = b - a;
    const double squaredLength = QPointF::dotProduct(d, d);
    const double slope = d.x() > 0 ? d.y() / d.x() : 0;
    const double halfSpan = reach_ * std::sqrt(1 + slope * slope);
    const int alongLimit = steep ? pixels_.height() - 1 : pixels_.width() - 1;
    const int acrossLimit = steep ? pixels_.width() - 1 : pixels_.height() - 1;
    // Pixels nearer than solid are covered whole; the square root is taken
    // only for those between it and the reach.
    const double solid = std::max(0.0, reach_ - 1);
    const double solidSquared = solid * solid;
    const double reachSquared = reach_ * reach_;
    const int first = std::max(0, static_cast<int>(std::ceil(a.x() - reach_)));
    const int last = std::min(alongLimit, static_cast<int>(std::floor(b.x() + reach_)));
    for (int u = first; u <= last; ++u) {
        const double centre = a.y() + (std::clamp<double>(u, a.x(), b.x()) - a.x()) * slope;
        const int top = std::max(0, static_cast<int>(std::ceil(centre - halfSpan)));
        const int bottom = std::min(acrossLimit, static_cast<int>(std::floor(centre + halfSpan)));
        for (int v = top; v <= bottom; ++v) {
            const QPointF p = QPointF(u, v) - a;
            const double t = squaredLength > 0 ? std::clamp(QPointF::dotProduct(p, d) / squaredLength, 0.0, 1.0) : 0;
            const QPointF off = p - d * t;
            const double squared = QPointF::dotProduct(off, off);
            if (squared < reachSquared) {
                const double coverage = squared <= solidSquared ? 1 : reach_ - std::sqrt(squared);
                steep ? cover(v, u, coverage) : cover(u, v, coverage);
            }
        }
    }
}

void WideLines::cover(int x, int y, double coverage)
{
    if (coverage_.empty()) {
        coverage_.resize(static_cast<std::size_t>(pixels_.width()) * pixels_.height());
    }
    const int index = y * pixels_.width() + x;
    const auto share = static_cast<std::uint8_t>(std::min(coverage, 1.0) * 255 + 0.5);
    std::uint8_t& kept = coverage_[static_cast<std::size_t>(index)];
    if (kept == 0 && share > 0) {
        covered_.push_back(index);
    }
    kept = std::max(kept, share);
}

void WideLines::composite()
{
    const int width = pixels_.width();
    for (const int index : covered_) {
        std::uint8_t& share = coverage_[static_cast<std::size_t>(index)];
        pixels_.blend(index % width, index / width, color_, share + (share >> 7));
        share = 0;
    }
    covered_.clear();
}

} // namespace orbelan
