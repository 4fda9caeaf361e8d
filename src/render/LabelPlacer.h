#pragma once

#include "model/LabelCandidate.h"
#include "render/LabelFonts.h"
#include "render/PlacedLabel.h"

#include <QRectF>

#include <optional>
#include <vector>

namespace orbelan {

// Places labels so that none overlaps another and each lies inside the
// view. Candidates are taken in layer order and, within a layer, larger
// elements first; one that would overlap a label already placed is dropped.
// A line's label runs along the segment nearest the view's centre that is
// long enough to hold it, reading left to right; a polygon's is centred on
// its centre, a point's beside its symbol.
class LabelPlacer {
public:
    LabelPlacer(QRectF view, LabelFonts& fonts);

    std::vector<PlacedLabel> place(std::vector<LabelCandidate> candidates);

private:
    std::optional<PlacedLabel> position(const LabelCandidate& candidate);
    std::optional<PlacedLabel> alongLine(const LabelCandidate& candidate, PlacedLabel label) const;
    void frame(PlacedLabel& label, QPointF centre) const;
    bool inside(const PlacedLabel& label) const;
    bool collides(const PlacedLabel& label) const;
    void occupy(const PlacedLabel& label);
    QRect cells(const PlacedLabel& label) const;

    QRectF view_;
    LabelFonts& fonts_;
    std::vector<PlacedLabel> placed_;
    // The placed labels whose box reaches each cell of a grid over the view.
    int columns_;
    int rows_;
    std::vector<std::vector<std::size_t>> grid_;
};

} // namespace orbelan
