#include "session/ElementChangeLoader.h"

#include "model/MapDocument.h"
#include "protocol/messages/ElementChange.h"
#include "session/CellRequester.h"
#include "session/DirectionText.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "session/TextCompare.h"

#include <string>
#include <vector>

namespace orbelan {

namespace {

using Change = messages::ElementChange;

std::vector<Vertex> verticesOf(const Change& change)
{
    std::vector<Vertex> vertices;
    vertices.reserve(change.points.size());
    for (const messages::WirePoint& point : change.points) {
        vertices.push_back({point.x, point.y});
    }
    return vertices;
}

// The values come in the order of the layer's fields: those of its label,
// thematic and direction fields go where they show.
void applyValues(layer& mapLayer, Entidad& element, const Change& change, const DWBUffer& message)
{
    std::size_t next = 0;
    for (const Campo& field : mapLayer.Campos().NewEnum()) {
        if (next == change.values.size()) {
            return;
        }
        const std::string& value = change.values[next++];
        if (sameText(field.Nombre, mapLayer.lblField)) {
            element.IDLabel = mapLayer.GetLabelIndex(value);
        }
        if (sameText(field.Nombre, mapLayer.ThematicField)) {
            element.ThemeValue = value;
            mapLayer.CalculateThemeObject(&element);
        }
        if (sameText(field.Nombre, mapLayer.DirectionField)) {
            element.Direction = directionOfText(value, message);
        }
    }
}

void requestValuesOfCells(layer& mapLayer, const Change& change, CellRequester& cells)
{
    for (std::size_t k = 0; k < change.cellI.size(); ++k) {
        for (const std::string* field : {&mapLayer.lblField, &mapLayer.ThematicField, &mapLayer.DirectionField}) {
            if (!field->empty()) {
                cells.requestFieldValues(mapLayer, {change.cellI[k], change.cellJ[k]}, *field);
            }
        }
    }
}

// False when there was nothing to change: an element the layer does not hold.
bool apply(layer& mapLayer, const Change& change, const DWBUffer& message, LoadContext& context)
{
    Entidad* element = mapLayer.Entidades.Find(change.element);
    switch (change.operation) {
    case Change::NewElement:
        element = &mapLayer.Entidades.AddEntity(change.element, verticesOf(change), mapLayer);
        break;
    case Change::GeometryChanged:
        if (element == nullptr) {
            return false;
        }
        element->SetPoints(verticesOf(change));
        element->bb = {};
        element->CalculateBoundingBox();
        break;
    case Change::Deleted:
        mapLayer.Entidades.RemoveKey(change.element);
        break;
    case Change::GridBoundsChanged:
        mapLayer.minCol = change.gridBounds[0];
        mapLayer.minRow = change.gridBounds[1];
        mapLayer.maxCol = change.gridBounds[2];
        mapLayer.maxRow = change.gridBounds[3];
        break;
    case Change::CellsToRefresh:
        requestValuesOfCells(mapLayer, change, context.cells);
        break;
    default:
        break;
    }
    if (change.carriesValues() && element != nullptr) {
        applyValues(mapLayer, *element, change, message);
    }
    return true;
}

} // namespace

void loadElementChange(DWBUffer& message, LoadContext& context)
{
    const Change change = Change::decode(message);
    layer* mapLayer = context.document.Layers().Find(change.layer);
    if (mapLayer == nullptr || !apply(*mapLayer, change, message, context)) {
        return;
    }
    if (mapLayer->Visible) {
        context.events.redrawMap();
    }
}

} // namespace orbelan
