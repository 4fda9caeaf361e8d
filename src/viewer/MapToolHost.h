#pragma once

#include "view/Viewport.h"

#include <QPoint>
#include <QRect>

namespace orbelan {

// What a map tool may do to the control that hosts it: read the view, change
// it, and show the feedback of a drag. Tools see this, never the widget.
class MapToolHost {
public:
    virtual ~MapToolHost() = default;

    virtual const Viewport& viewport() const = 0;
    // Fits the geographic box (corners in any order) into the control, the
    // projection set up anew for it.
    virtual void showBox(const BoundingBox& box) = 0;
    // Zooms by factor, keeping the view's size ratio, centred on the point.
    virtual void zoomAbout(float factor, MapPoint centre) = 0;
    // Moves the view so that the map point `from` comes under the pixel of
    // `to`; false when nothing moved.
    virtual bool dragView(MapPoint from, MapPoint to) = 0;
    virtual void redrawMap() = 0;
    virtual void showRubberBand(const QRect& rectangle) = 0;
    virtual void hideRubberBand() = 0;
    // Moves the map picture by offset while a pan drag is under way.
    virtual void setPanOffset(QPoint offset) = 0;
    // Ends a zoom or pan: the tool that was armed before it comes back while
    // a multi-step operation is under way, otherwise no tool; a completed
    // drag becomes the previous tool, so that the click ending it re-arms.
    virtual void finishNavigation(int tool, bool completed) = 0;
};

} // namespace orbelan
