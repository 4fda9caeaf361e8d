#pragma once

#include "model/Theme.h"
#include "model/TipoLayer.h"

#include <QImage>
#include <QPalette>
#include <QSize>

#include <cstdint>

namespace orbelan {

// The small picture that stands for a thematic class in the legend: the
// map's background with one point in the middle (point layers), a line
// across the middle (line layers) or a filled rectangle (polygon layers),
// drawn by the map's own surface so that the class looks as on the map.
// Other kinds show the background only.
QImage classSymbol(const Theme& theme, TipoLayer kind, QSize size, std::uint32_t background,
                   const QPalette& palette);

} // namespace orbelan
