#pragma once

#include "model/Vertex.h"

#include <QPointF>

#include <optional>
#include <span>

class QImage;
class QPainter;

namespace orbelan {

class Viewport;

// What a point entry draws over the map: the line through the points
// entered so far, and the rubber lines from the last point to the pointer
// (tmpLine1) and from the pointer back to the first point (tmpLine2). The
// points are placed anew at each paint, so they stay on the map when the
// view changes.
class EntryOverlay {
public:
    // The pixel the rubber lines run to, none to hide them; closing draws
    // the edge back to the first point too.
    void followPointer(const std::optional<QPointF>& pointer, bool closing);

    void paint(QPainter& painter, const Viewport& view, std::span<const Vertex> entered) const;

    // Marks a picked segment on the picture, until its next redraw: the
    // segment as a wide red line with a dot at its first point, and a blue
    // dot at the click.
    static void markSegment(QImage& picture, const Viewport& view, const Vertex& first, const Vertex& second,
                            const Vertex& click);

private:
    std::optional<QPointF> pointer_;
    bool closing_ = false;
};

} // namespace orbelan
