#include "session/CellRequester.h"

#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "model/MapDocument.h"
#include "protocol/RequestSender.h"
#include "session/SessionEvents.h"
#include "session/StatusList.h"
#include "session/TextCompare.h"
#include "view/Viewport.h"

#include <exception>

namespace orbelan {

CellRequester::CellRequester(RequestSender& sender, MapDocument& document, const Viewport& view,
                             SessionEvents& events)
    : sender_(sender),
      document_(document),
      view_(view),
      events_(events)
{
}

void CellRequester::requestCellsOfView()
{
    const BoundingBox& view = view_.viewBox();
    for (layer& mapLayer : document_.Layers()) {
        if (!mapLayer.CalculateVisibility()) {
            continue;
        }
        std::vector<GridCell> cells;
        try {
            cells = mapLayer.GetCellsInArea(view.MinX, view.MinY, view.MaxX, view.MaxY);
        } catch (const std::exception&) {
            // A grid without cell size, or with more cells than can be
            // numbered, holds nothing that can be asked for.
            continue;
        }
        requestCellsOfLayer(mapLayer, cells);
    }
}

void CellRequester::requestCellsOfLayer(layer& mapLayer, const std::vector<GridCell>& cells)
{
    const bool labels = !mapLayer.lblField.empty() && mapLayer.CalculateLabelVisibility();
    const bool directions = !mapLayer.DirectionField.empty() && mapLayer.CalculateDirectionVisibility();
    for (const GridCell& cell : cells) {
        if (!mapLayer.IsCeldaSolicitada(cell.row, cell.column)) {
            requestCell(mapLayer, cell);
            mapLayer.CeldaSolicitada(cell.row, cell.column);
        }
        if (labels && !mapLayer.IsLabelCellSolicitada(cell.row, cell.column)) {
            requestFieldValues(mapLayer, cell, mapLayer.lblField);
            mapLayer.LabelCellSolicitada(cell.row, cell.column);
        }
        if (directions && !mapLayer.IsDirectionCellSolicitada(cell.row, cell.column)) {
            requestFieldValues(mapLayer, cell, mapLayer.DirectionField);
            mapLayer.DirectionCellSolicitada(cell.row, cell.column);
        }
    }
}

void CellRequester::requestCell(const layer& mapLayer, GridCell cell)
{
    events_.changeStatus(mapLayer.IDLayer, StatusList::RequestingLayer, QString::fromStdString(mapLayer.Nombre));
    sendMessage(sender_, messages::CellGeometryRequest{mapLayer.IDLayer, cell.row, cell.column});
}

void CellRequester::requestFieldValues(const layer& mapLayer, GridCell cell, const std::string& field)
{
    const QString name = QString::fromStdString(mapLayer.Nombre);
    if (sameText(field, mapLayer.lblField)) {
        events_.changeStatus(mapLayer.IDLayer, StatusList::RequestingLabels, name);
    } else if (sameText(field, mapLayer.ThematicField)) {
        events_.changeStatus(mapLayer.IDLayer, StatusList::RequestingTheme, name);
    }
    sendMessage(sender_, messages::CellFieldValuesRequest{mapLayer.IDLayer, cell.row, cell.column, field});
}

void CellRequester::requestCellsAgain(const layer& mapLayer)
{
    for (const GridCell& cell : mapLayer.RequestedCells().cells()) {
        requestCell(mapLayer, cell);
    }
}

} // namespace orbelan
