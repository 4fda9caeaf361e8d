#pragma once

#include "model/Vertex.h"
#include "view/Viewport.h"

#include <functional>
#include <memory>
#include <optional>

class QAction;
class QWidget;

namespace orbelan {

class MapDocument;
class UiServices;
class dlgSmartEndPoint;

// How a click of a drawing tool becomes the point it enters, by the checked
// item of the end menu: the clicked point; the nearest vertex of a visible
// layer (mnuEndPoint); that vertex moved by an offset typed in dlgRelativeTo,
// for one point (mnuRelativeTo); or a point at typed distances along and
// across a segment picked on the map, for one point (mnuSmartEndPoint).
class PointEntry {
public:
    // The three items of the end menu that choose the method.
    struct Methods {
        QAction& endPoint;
        QAction& relativeTo;
        QAction& smartEndPoint;
    };
    // Draws the picked segment from its first to its second point and marks
    // the click, until the next redraw.
    using SegmentMarker = std::function<void(const Vertex& first, const Vertex& second, const Vertex& click)>;

    PointEntry(Methods methods, MapDocument& document, const Viewport& view, UiServices& ui, QWidget& parent,
               SegmentMarker marker);
    ~PointEntry();

    PointEntry(const PointEntry&) = delete;
    PointEntry& operator=(const PointEntry&) = delete;

    // The point a click at the point of the map's plane enters, in degrees;
    // nothing when it enters none (no vertex to start from, a click that
    // picks the segment, a point off the globe).
    std::optional<Vertex> resolve(MapPoint click);
    void setUiServices(UiServices& ui) { ui_ = &ui; }

    // Handlers of the two items that ask for numbers first.
    void relativeToChosen();
    void smartEndPointChosen();

private:
    std::optional<Vertex> nearestVertex(const Vertex& at) const;
    std::optional<Vertex> offsetFromNearestVertex(const Vertex& at);
    void pickSegment(const Vertex& at);
    std::optional<Vertex> pointFromSegment(MapPoint click, const Vertex& at);
    // Shows the smart end point dialog; its Cancel ends the method.
    void askSmartEndPoint();
    void endSmartEndPoint();

    Methods methods_;
    MapDocument& document_;
    const Viewport& view_;
    UiServices* ui_;
    QWidget& parent_;
    SegmentMarker marker_;
    MapPoint offset_;
    // Lives from the choice of the method to the point it gives.
    std::unique_ptr<dlgSmartEndPoint> smartEndPoint_;
    Vertex segmentFirst_;
    Vertex segmentSecond_;
};

} // namespace orbelan
