#include "session/MapDefinitionLoader.h"

#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "session/LayerDefinitionLoader.h"
#include "session/LoadContext.h"
#include "session/SessionState.h"
#include "protocol/messages/MapDefinition.h"
#include "model/MapDocument.h"
#include "protocol/RequestSender.h"
#include "session/SessionEvents.h"
#include "session/StatusList.h"
#include "session/TextCompare.h"

#include <cstdint>
#include <vector>

namespace orbelan {

namespace {

// The thematic value that stands for any value: the default class's minimum.
constexpr const char* kAnyValue = "MICanyMIC";
constexpr const char* kDirectionField = "DIR";

// Point and image layers have no direction of travel: a "DIR" field there is
// an ordinary field.
bool showsDirections(TipoLayer kind)
{
    return kind != pointlayer && kind != ImageLayer;
}

void addFields(layer& mapLayer, const std::vector<messages::FieldRecord>& fields)
{
    for (const messages::FieldRecord& field : fields) {
        mapLayer.Campos().Add(field.name, field.type);
        if (sameText(field.name, mapLayer.ThematicField)) {
            mapLayer.ThematicFieldType = field.type;
        }
        if (sameText(field.name, kDirectionField) && showsDirections(mapLayer.Tipo)) {
            mapLayer.DirectionField = kDirectionField;
            // Hidden until the user asks for direction marks.
            mapLayer.setUserDirectionVisibility(0);
        }
    }
}

void addLayer(MapDocument& document, const messages::LayerRecord& record)
{
    layer& mapLayer = document.addLayer(record.name, record.id, static_cast<TipoLayer>(record.type));
    mapLayer.minCol = record.minCol;
    mapLayer.minRow = record.minRow;
    mapLayer.maxCol = record.maxCol;
    mapLayer.maxRow = record.maxRow;
    mapLayer.GridDeltaX = record.gridDeltaX;
    mapLayer.GridDeltaY = record.gridDeltaY;
    mapLayer.setUserVisibility(record.visibility);
    mapLayer.ZoomMin = record.zoomMin;
    mapLayer.ZoomMax = record.zoomMax;
    mapLayer.ThematicMap().Add(record.drawStyle, record.drawWidth, record.drawColor, record.fillColor,
                               record.fillStyle, kAnyValue, "");
    mapLayer.lblField = record.labelField;
    mapLayer.lblZoomMin = record.labelZoomMin;
    mapLayer.lblZoomMax = record.labelZoomMax;
    mapLayer.setUserLabelVisibility(record.labelVisibility);
    mapLayer.lblBold = record.labelBold == 1;
    mapLayer.lblColor = record.labelColor;
    mapLayer.ThematicField = record.thematicField;
    mapLayer.ThematicType = record.thematicType;
    addFields(mapLayer, record.fields);
    for (const messages::ThematicClassRecord& themeClass : record.classes) {
        addThematicClass(mapLayer, themeClass);
    }
}

// The map's own fields are stored one by one as they are read.
void storeMapField(messages::MapDefinition::Field field, const messages::MapDefinition& map, LoadContext& context)
{
    using Field = messages::MapDefinition::Field;
    MapDocument& document = context.document;
    switch (field) {
    case Field::Name:
        document.Nombre = map.name;
        context.events.changeStatus(0, StatusList::LoadingMap);
        break;
    case Field::MinX: document.mapExtent.MinX = map.minX; break;
    case Field::MinY: document.mapExtent.MinY = map.minY; break;
    case Field::MaxX: document.mapExtent.MaxX = map.maxX; break;
    case Field::MaxY: document.mapExtent.MaxY = map.maxY; break;
    case Field::Background: document.BackgroundColor = static_cast<std::uint32_t>(map.background); break;
    case Field::Projection: document.Projection = map.projection; break;
    }
}

} // namespace

// Layers are added record by record, as a layer half read would have neither
// its grid nor its default class.
void loadMapDefinition(DWBUffer& message, LoadContext& context)
{
    messages::MapDefinition map;
    messages::LayerAccessLevelsRequest levels{context.document.IDUser, {}};
    messages::MapDefinition::decodeEach(
        message, map, [&](messages::MapDefinition::Field field) { storeMapField(field, map, context); },
        [&](messages::LayerRecord&& record) {
            addLayer(context.document, record);
            levels.layers.push_back(record.id);
        });
    context.state.mapDefined = true;
    sendMessage(context.requests, levels);
    context.events.changeStatus(0, StatusList::Remove + StatusList::LoadingMap);
    context.events.definitionLoaded();
}

} // namespace orbelan
