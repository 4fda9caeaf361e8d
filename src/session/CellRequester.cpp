#include "session/CellRequester.h"

#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "model/MapDocument.h"
#include "protocol/RequestSender.h"
#include "session/SessionEvents.h"
#include "session/StatusList.h"
#include "session/TextCompare.h"
#include "view/Viewport.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

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
        if (mapLayer.CalculateVisibility()) {
            requestCellsOfLayer(mapLayer, view);
        }
    }
}

// Cells are taken row by row until the view's share is used up; the step
// that says so is shown again only while a view of the layer meets the limit.
void CellRequester::requestCellsOfLayer(layer& mapLayer, const BoundingBox& view)
{
    const bool labels = !mapLayer.lblField.empty() && mapLayer.CalculateLabelVisibility();
    const bool directions = !mapLayer.DirectionField.empty() && mapLayer.CalculateDirectionVisibility();
    events_.changeStatus(mapLayer.IDLayer, StatusList::Remove + StatusList::CellLimit);
    int requested = 0;
    bool limited = false;
    try {
        mapLayer.VisitCellsInArea(view.MinX, view.MinY, view.MaxX, view.MaxY, [&](GridCell cell) {
            if (!missing(mapLayer, cell, labels, directions)) {
                return true;
            }
            limited = requested == kCellsPerView;
            if (!limited) {
                requestMissing(mapLayer, cell, labels, directions);
                ++requested;
            }
            return !limited;
        });
    } catch (const std::out_of_range&) {
        // A grid without cell size, or with cells that cannot be numbered,
        // holds nothing that can be asked for.
        return;
    }
    if (limited) {
        events_.changeStatus(mapLayer.IDLayer, StatusList::CellLimit, QString::fromStdString(mapLayer.Nombre));
    }
}

bool CellRequester::missing(const layer& mapLayer, GridCell cell, bool labels, bool directions)
{
    return !mapLayer.IsCeldaSolicitada(cell.row, cell.column) ||
           (labels && !mapLayer.IsLabelCellSolicitada(cell.row, cell.column)) ||
           (directions && !mapLayer.IsDirectionCellSolicitada(cell.row, cell.column));
}

void CellRequester::requestMissing(layer& mapLayer, GridCell cell, bool labels, bool directions)
{
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

void CellRequester::requestCell(const layer& mapLayer, GridCell cell)
{
    events_.changeStatus(mapLayer.IDLayer, StatusList::RequestingLayer, QString::fromStdString(mapLayer.Nombre));
    awaited_.push_back({mapLayer.IDLayer, Kind::Geometry, cell});
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
    awaited_.push_back({mapLayer.IDLayer, kindOf(mapLayer, field), cell});
    sendMessage(sender_, messages::CellFieldValuesRequest{mapLayer.IDLayer, cell.row, cell.column, field});
}

void CellRequester::requestCellsAgain(const layer& mapLayer)
{
    for (const GridCell& cell : mapLayer.RequestedCells().cells()) {
        requestCell(mapLayer, cell);
    }
}

void CellRequester::cellArrived(const layer& mapLayer, GridCell cell)
{
    arrived([&](const Awaited& awaited) {
        return awaited.layerId == mapLayer.IDLayer && awaited.kind == Kind::Geometry && awaited.cell == cell;
    });
}

void CellRequester::valuesArrived(const layer& mapLayer, const std::string& field)
{
    const Kind kind = kindOf(mapLayer, field);
    arrived([&](const Awaited& awaited) { return awaited.layerId == mapLayer.IDLayer && awaited.kind == kind; });
}

// Replies come in the order of their requests, so the match is found at
// once or after the few whose replies went astray.
void CellRequester::arrived(const std::function<bool(const Awaited&)>& matches)
{
    const auto found = std::find_if(awaited_.begin(), awaited_.end(), matches);
    if (found != awaited_.end()) {
        awaited_.erase(found);
    }
}

void CellRequester::forgetAwaited()
{
    for (const Awaited& awaited : std::exchange(awaited_, {})) {
        layer* mapLayer = document_.Layers().Find(awaited.layerId);
        if (mapLayer == nullptr) {
            continue;
        }
        switch (awaited.kind) {
        case Kind::Geometry: mapLayer->RemoveCell(awaited.cell.row, awaited.cell.column); break;
        case Kind::Labels: mapLayer->RemoveLabelCell(awaited.cell.row, awaited.cell.column); break;
        case Kind::Directions: mapLayer->RemoveDirectionCell(awaited.cell.row, awaited.cell.column); break;
        // A cell's classes are asked for when its geometry arrives.
        case Kind::Themes: mapLayer->RemoveCell(awaited.cell.row, awaited.cell.column); break;
        case Kind::Other: break;
        }
    }
}

CellRequester::Kind CellRequester::kindOf(const layer& mapLayer, const std::string& field)
{
    if (sameText(field, mapLayer.lblField)) {
        return Kind::Labels;
    }
    if (sameText(field, mapLayer.DirectionField)) {
        return Kind::Directions;
    }
    return sameText(field, mapLayer.ThematicField) ? Kind::Themes : Kind::Other;
}

} // namespace orbelan
