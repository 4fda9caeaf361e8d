#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <array>
#include <cstdint>

namespace orbelan {

// A label where placement put it: the top-left corner of its text, as the
// text turns, turned degrees counter-clockwise about that corner; and the
// box it keeps free of other labels, its text with the halo around it.
struct PlacedLabel {
    QString text;
    bool bold = false;
    std::int32_t color = 0;
    QPointF start;
    double turn = 0;
    QSizeF size;
    std::array<QPointF, 4> box;
};

} // namespace orbelan
