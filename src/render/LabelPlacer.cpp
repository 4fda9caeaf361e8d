#include "render/LabelPlacer.h"

#include <QLineF>
#include <QRect>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orbelan {

namespace {

// The grid's cells are this many pixels a side.
constexpr double kCell = 64;
// The halo around the text, and the room a line's label leaves at each end
// of its segment.
constexpr double kHalo = 1;
constexpr double kLineRoom = 2;
// A point's label starts this far right of the point, clear of its symbol.
constexpr double kBesideSymbol = 4;

bool finite(const ScreenPoint& point)
{
    return std::isfinite(point.X) && std::isfinite(point.Y);
}

// Whether the two convex boxes overlap by more than their edges: no side of
// either separates them.
bool overlap(const std::array<QPointF, 4>& a, const std::array<QPointF, 4>& b)
{
    for (const auto* box : {&a, &b}) {
        for (std::size_t i = 0; i < 2; ++i) {
            const QPointF edge = (*box)[i + 1] - (*box)[i];
            const QPointF normal(-edge.y(), edge.x());
            auto project = [&](const std::array<QPointF, 4>& corners, double& low, double& high) {
                low = high = QPointF::dotProduct(corners[0], normal);
                for (const QPointF& corner : corners) {
                    const double value = QPointF::dotProduct(corner, normal);
                    low = std::min(low, value);
                    high = std::max(high, value);
                }
            };
            double lowA = 0, highA = 0, lowB = 0, highB = 0;
            project(a, lowA, highA);
            project(b, lowB, highB);
            if (highA <= lowB || highB <= lowA) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

LabelPlacer::LabelPlacer(QRectF view, LabelFonts& fonts)
    : view_(view),
      fonts_(fonts),
      columns_(std::max(1, static_cast<int>(std::ceil(view.width() / kCell)))),
      rows_(std::max(1, static_cast<int>(std::ceil(view.height() / kCell)))),
      grid_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_))
{
}

std::vector<PlacedLabel> LabelPlacer::place(std::vector<LabelCandidate> candidates)
{
    std::stable_sort(candidates.begin(), candidates.end(), [](const LabelCandidate& a, const LabelCandidate& b) {
        return a.layerOrder != b.layerOrder ? a.layerOrder < b.layerOrder : a.size > b.size;
    });
    for (const LabelCandidate& candidate : candidates) {
        std::optional<PlacedLabel> label = position(candidate);
        if (label && !collides(*label)) {
            occupy(*label);
        }
    }
    return std::move(placed_);
}

std::optional<PlacedLabel> LabelPlacer::position(const LabelCandidate& candidate)
{
    if (candidate.points.empty()) {
        return std::nullopt;
    }
    PlacedLabel label;
    label.text = QString::fromStdString(candidate.text);
    label.bold = candidate.bold;
    label.color = candidate.color;
    const LabelFonts::Face& face = fonts_.face(candidate.bold);
    qreal advance = 0;
    face.layout(label.text, advance);
    label.size = QSizeF(advance, face.height);
    // A polygon smaller on the screen than a letter of its name, an island at
    // a view of the world, is left unnamed.
    if (candidate.kind == polygonlayer && candidate.size < face.height * face.height) {
        return std::nullopt;
    }
    if (candidate.kind != pointlayer && candidate.kind != polygonlayer) {
        return alongLine(candidate, label);
    }
    const ScreenPoint& at = candidate.points.front();
    if (!finite(at)) {
        return std::nullopt;
    }
    const double shift = candidate.kind == pointlayer ? kBesideSymbol + advance / 2 : 0;
    frame(label, QPointF(at.X + shift, at.Y));
    return inside(label) ? std::optional(label) : std::nullopt;
}

std::optional<PlacedLabel> LabelPlacer::alongLine(const LabelCandidate& candidate, PlacedLabel label) const
{
    const QPointF centre = view_.center();
    std::optional<PlacedLabel> best;
    double bestDistance = 0;
    for (std::size_t i = 1; i < candidate.points.size(); ++i) {
        QLineF segment(candidate.points[i - 1].X, candidate.points[i - 1].Y, candidate.points[i].X,
                       candidate.points[i].Y);
        const QPointF middle = segment.center();
        const QPointF away = middle - centre;
        const double distance = QPointF::dotProduct(away, away);
        if (!std::isfinite(distance) || segment.length() < label.size.width() + 2 * kLineRoom ||
            (best && distance >= bestDistance)) {
            continue;
        }
        // Read left to right, and a vertical line from the bottom up.
        if (segment.dx() < 0 || (segment.dx() == 0 && segment.dy() > 0)) {
            segment = QLineF(segment.p2(), segment.p1());
        }
        label.turn = LabelFonts::turn(std::atan2(-segment.dy(), segment.dx()) * 180 / std::numbers::pi);
        frame(label, middle);
        if (inside(label)) {
            best = label;
            bestDistance = distance;
        }
    }
    return best;
}

// The start and the box of the label centred on the point at its turn.
void LabelPlacer::frame(PlacedLabel& label, QPointF centre) const
{
    const double radians = label.turn * std::numbers::pi / 180;
    const QPointF along(std::cos(radians), -std::sin(radians));
    const QPointF across(std::sin(radians), std::cos(radians));
    const double width = label.size.width();
    const double height = label.size.height();
    label.start = centre - along * (width / 2) - across * (height / 2);
    const QPointF low = label.start - (along + across) * kHalo;
    const QPointF wide = along * (width + 2 * kHalo);
    const QPointF tall = across * (height + 2 * kHalo);
    label.box = {low, low + wide, low + wide + tall, low + tall};
}

bool LabelPlacer::inside(const PlacedLabel& label) const
{
    return std::all_of(label.box.begin(), label.box.end(), [&](const QPointF& corner) {
        return corner.x() >= view_.left() && corner.x() <= view_.right() && corner.y() >= view_.top() &&
               corner.y() <= view_.bottom();
    });
}

// The grid cells the label's box reaches, as columns and rows.
QRect LabelPlacer::cells(const PlacedLabel& label) const
{
    double left = label.box[0].x();
    double right = left;
    double top = label.box[0].y();
    double bottom = top;
    for (const QPointF& corner : label.box) {
        left = std::min(left, corner.x());
        right = std::max(right, corner.x());
        top = std::min(top, corner.y());
        bottom = std::max(bottom, corner.y());
    }
    auto cell = [](double value, double origin, int count) {
        return std::clamp(static_cast<int>(std::floor((value - origin) / kCell)), 0, count - 1);
    };
    return QRect(QPoint(cell(left, view_.left(), columns_), cell(top, view_.top(), rows_)),
                 QPoint(cell(right, view_.left(), columns_), cell(bottom, view_.top(), rows_)));
}

bool LabelPlacer::collides(const PlacedLabel& label) const
{
    const QRect reach = cells(label);
    for (int row = reach.top(); row <= reach.bottom(); ++row) {
        for (int column = reach.left(); column <= reach.right(); ++column) {
            for (const std::size_t other : grid_[static_cast<std::size_t>(row * columns_ + column)]) {
                if (overlap(label.box, placed_[other].box)) {
                    return true;
                }
            }
        }
    }
    return false;
}

void LabelPlacer::occupy(const PlacedLabel& label)
{
    const QRect reach = cells(label);
    for (int row = reach.top(); row <= reach.bottom(); ++row) {
        for (int column = reach.left(); column <= reach.right(); ++column) {
            grid_[static_cast<std::size_t>(row * columns_ + column)].push_back(placed_.size());
        }
    }
    placed_.push_back(label);
}

} // namespace orbelan
