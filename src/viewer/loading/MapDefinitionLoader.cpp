#include "MapDefinitionLoader.h"

#include "LayerAccessLevelsRequest.h"
#include "LayerDefinitionLoader.h"
#include "LayerRecord.h"
#include "MessageIO.h"
#include "SendMessage.h"
#include "StatusList.h"
#include "TextCompare.h"
#include "Viewer.h"

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

void addLayer(Viewer& viewer, const messages::LayerRecord& record)
{
    layer& mapLayer =
        viewer.Layers().AddLayer(record.name, record.id, static_cast<TipoLayer>(record.type), viewer);
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

} // namespace

// The map's own fields are stored one by one as they are read; layers are
// added record by record, as a layer half read would have neither its grid
// nor its default class.
void loadMapDefinition(DWBUffer& message, ServerConnection& connection, Viewer& viewer)
{
    connection.replyHandled();
    viewer.Nombre = message.GetString();
    viewer.changeStatus(0, StatusList::LoadingMap);
    viewer.mapExtent.MinX = message.GetSingle();
    viewer.mapExtent.MinY = message.GetSingle();
    viewer.mapExtent.MaxX = message.GetSingle();
    viewer.mapExtent.MaxY = message.GetSingle();
    viewer.BackgroundColor = static_cast<std::uint32_t>(message.GetLong());
    viewer.setProjection(message.GetInteger());

    const std::size_t count = messages::recordCount(message.GetInteger());
    messages::LayerAccessLevelsRequest levels{viewer.IDUser(), {}};
    for (std::size_t i = 0; i < count; ++i) {
        const messages::LayerRecord record = messages::LayerRecord::decode(message);
        addLayer(viewer, record);
        levels.layers.push_back(record.id);
    }
    sendMessage(connection, levels);
    viewer.changeStatus(0, StatusList::Remove + StatusList::LoadingMap);
    emit viewer.MapLoaded();
}

} // namespace orbelan
