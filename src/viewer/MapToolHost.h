#pragma once

#include "model/Vertex.h"
#include "ui/UiServices.h"
#include "view/Viewport.h"

#include <QPointF>
#include <QPoint>
#include <QRect>

#include <cstdint>
#include <optional>
#include <vector>

namespace orbelan {

class Layers;
class ToolMenus;

// What a map tool may do to the control that hosts it: read the view, change
// it, and show the feedback of a drag. Tools see this, never the widget.
class MapToolHost {
public:
    virtual ~MapToolHost() = default;

    virtual const Viewport& viewport() const = 0;
    virtual Layers& layers() = 0;
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

    // The current tool changed to number.
    virtual void toolChanged(int number) = 0;
    // Ends whatever tool is current; false when the user would rather keep
    // an element's edit.
    virtual bool resetTool() = 0;
    virtual void selectToolCursor() = 0;
    // The point a click of a drawing tool enters, by the chosen point-entry
    // method; nothing when the click enters no point.
    virtual std::optional<Vertex> resolveInputPoint(MapPoint click) = 0;
    // Shows the points entered so far again, after they changed.
    virtual void showEnteredPoints() = 0;
    // The rubber lines follow the pointer (a pixel) while points are entered:
    // from the last point to it and, closing a polygon, on to the first
    // point; nothing hides them.
    virtual void followPointer(const std::optional<QPointF>& pointer, bool closing) = 0;
    // The pop-up menus, whose check marks hold the tools' choices.
    virtual ToolMenus& menus() = 0;
    // Tells hosts which elements of the layer a selection collected.
    virtual void selectionSet(std::int32_t layerId, const std::vector<std::int32_t>& ids) = 0;
    // Asks for the values of an element, to show them or, with forEditing,
    // to let the user change them.
    virtual void requestInformation(std::int32_t layerId, std::int32_t elementId, bool forEditing) = 0;
    // The polygon of a multiple selection was picked or drawn: the
    // selection goes on with it.
    virtual void resumeMultipleSelection() = 0;
    // A line of the status text that the tool keeps up to date; empty for none.
    virtual void showToolStatus(const QString& text) = 0;
    virtual MessageAnswer messageBox(const QString& text, MessageButtons buttons, MessageIcon icon,
                                     const QString& caption) = 0;
};

} // namespace orbelan
