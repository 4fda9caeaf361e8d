#pragma once

#include <QPointF>
#include <QSizeF>

#include <cstdint>

namespace orbelan {

// Where a text turned angle degrees counter-clockwise starts (the top-left
// corner of its first character, as it turns) so that its anchor pixel
// holds: align 1 the start itself, align 2 the middle of the top side,
// align 3 the middle of the starting side. Any other align is taken as 1.
QPointF rotatedTextStart(QPointF anchor, double angle, QSizeF text, std::int16_t align);

} // namespace orbelan
