#include "session/CellGeometryLoader.h"

#include "protocol/messages/CellGeometry.h"
#include "session/CellRequester.h"
#include "session/LoadContext.h"
#include "protocol/RequestSender.h"
#include "model/MapDocument.h"
#include "session/SessionEvents.h"
#include "session/StatusList.h"
#include "model/Vertex.h"

#include <QString>

#include <optional>
#include <vector>

namespace orbelan {

// Elements are added one by one, so that a cell cut short keeps those read
// before the cut. A cell of a layer the map does not have is dropped. The
// map is redrawn when this was the last reply awaited.
void loadCellGeometry(DWBUffer& message, LoadContext& context)
{
    messages::CellGeometry cell;
    std::optional<layer*> cellLayer;
    const auto layerOfCell = [&]() {
        if (!cellLayer) {
            cellLayer = context.document.Layers().Find(cell.layer);
        }
        return *cellLayer;
    };
    std::vector<Vertex> vertices;
    messages::CellGeometry::decodeEach(message, cell, [&](messages::CellElement&& element) {
        layer* mapLayer = layerOfCell();
        if (mapLayer == nullptr) {
            return;
        }
        vertices.resize(element.points.size());
        for (std::size_t p = 0; p < element.points.size(); ++p) {
            vertices[p] = {element.points[p].x, element.points[p].y};
        }
        mapLayer->Entidades.AddEntity(element.id, vertices, *mapLayer);
    });
    layer* mapLayer = layerOfCell();
    if (mapLayer != nullptr) {
        context.events.changeStatus(cell.layer, StatusList::LoadingLayer, QString::fromStdString(mapLayer->Nombre));
        context.cells.cellArrived(*mapLayer, {cell.row, cell.column});
    }
    if (context.requests.pendingRequests() == 0) {
        context.events.redrawMap();
    }
    if (mapLayer == nullptr) {
        return;
    }
    context.document.layerscargados = true;
    mapLayer->Loaded = true;
    context.events.changeStatus(cell.layer, StatusList::Remove + StatusList::LoadingLayer);
    if (!mapLayer->ThematicField.empty()) {
        context.cells.requestFieldValues(*mapLayer, {cell.row, cell.column}, mapLayer->ThematicField);
    }
}

} // namespace orbelan
