#pragma once

#include "query/QueryMap.h"

#include <cstdint>
#include <string>
#include <vector>

#include <QList>
#include <QString>
#include <QStringList>

class QWidget;

namespace orbelan {

class BoundingBox;

// What the session asks of the control that shows its map: a loader or the
// cell requester never sees the widget, only this. The query dialogs that
// replies open ask the map through the same control.
class SessionEvents : public QueryMap {
public:
    virtual ~SessionEvents() = default;

    // Draws the map anew with what has arrived.
    virtual void redrawMap() = 0;
    // Shows the whole map (the first view once the access levels are known).
    virtual void zoomToExtents() = 0;
    // Shows the box of map coordinates, as a window zoom does.
    virtual void showBox(const BoundingBox& box) = 0;
    // One change of the status list: a step of a layer started or ended.
    virtual void changeStatus(std::int32_t layerId, std::uint8_t step, const QString& layerName = {}) = 0;
    // The map definition has been read whole: hosts hear MapLoaded.
    virtual void definitionLoaded() = 0;
    // The values of an element, with the names and types of their fields,
    // for the host (InfoArrival).
    virtual void informationArrived(std::int32_t layerId, std::int32_t elementId, const QStringList& fieldNames,
                                    const QList<int>& fieldTypes, const QStringList& values) = 0;
    // The statistics of a field that the layer setup of the layer asked
    // for; a control without layer setup lets them go.
    virtual void statisticsArrived(std::int32_t /*layerId*/, std::vector<std::string> /*values*/) {}
    // The window message boxes belong to.
    virtual QWidget* dialogParent() = 0;
};

} // namespace orbelan
