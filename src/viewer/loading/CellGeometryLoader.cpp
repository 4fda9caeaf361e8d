#include "CellGeometryLoader.h"

#include "CellElement.h"
#include "GridCell.h"
#include "MessageIO.h"
#include "StatusList.h"
#include "Vertex.h"
#include "Viewer.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace orbelan {

// Elements are added one by one, so that a cell cut short keeps those read
// before the cut. A cell of a layer the map does not have is dropped.
void loadCellGeometry(DWBUffer& message, ServerConnection& connection, Viewer& viewer)
{
    connection.replyHandled();
    const std::int32_t layerId = message.GetLong();
    layer* mapLayer = viewer.Layers().Find(layerId);
    if (mapLayer == nullptr) {
        return;
    }
    viewer.changeStatus(layerId, StatusList::LoadingLayer, QString::fromStdString(mapLayer->Nombre));
    GridCell cell;
    cell.row = message.GetLong();
    cell.column = message.GetLong();
    const bool relative = message.GetByte() != 0;
    messages::WirePoint base;
    base.x = message.GetDouble();
    base.y = message.GetDouble();
    const std::size_t count = messages::recordCount(message.GetLong());

    std::vector<Vertex> vertices;
    for (std::size_t i = 0; i < count; ++i) {
        const messages::CellElement element = messages::CellElement::decode(message, relative, base);
        vertices.resize(element.points.size());
        for (std::size_t p = 0; p < element.points.size(); ++p) {
            vertices[p] = {element.points[p].x, element.points[p].y};
        }
        mapLayer->Entidades.AddEntity(element.id, vertices, *mapLayer);
    }

    viewer.layerscargados = true;
    mapLayer->Loaded = true;
    viewer.changeStatus(layerId, StatusList::Remove + StatusList::LoadingLayer);
    if (!mapLayer->ThematicField.empty()) {
        viewer.requestFieldValues(*mapLayer, cell, mapLayer->ThematicField);
    }
}

} // namespace orbelan
