#pragma once

#include "render/RasterSource.h"

#include <QRect>

#include <optional>

namespace orbelan {

class Viewport;

// Where a raster image goes on the control: the rectangle of pixels it
// covers, cut to the control, and the window of the plane those pixels show.
struct RasterPlacement {
    QRect screen;
    WorldWindow world;

    // The image's corners become pixels; a corner left of or above the
    // control is moved to pixel 0, one right of or below it to the control's
    // edge, and the pixels left are turned back into the plane's window, so
    // that only the visible part is read. None when the image lies wholly
    // outside the view or there is no view.
    static std::optional<RasterPlacement> place(const WorldWindow& extent, const Viewport& view);
};

} // namespace orbelan
