#include "protocol/messages/LayerRecord.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

void LayerRecord::encode(DWBUffer& message) const
{
    encodeSettings(message);
    message.PutInteger(shortCount(fields.size()));
    for (const FieldRecord& field : fields) {
        field.encode(message);
    }
    message.PutInteger(shortCount(classes.size()));
    for (const ThematicClassRecord& themeClass : classes) {
        themeClass.encode(message);
    }
}

void LayerRecord::encodeSettings(DWBUffer& message) const
{
    message.PutString(name);
    message.PutLong(id);
    message.PutInteger(type);
    encodeGridAndZoom(message);
    encodeStyleAndLabels(message);
    message.PutString(thematicField);
    message.PutInteger(thematicType);
}

void LayerRecord::encodeGridAndZoom(DWBUffer& message) const
{
    message.PutLong(minCol);
    message.PutLong(minRow);
    message.PutLong(maxCol);
    message.PutLong(maxRow);
    message.PutSingle(gridDeltaX);
    message.PutSingle(gridDeltaY);
    message.PutInteger(visibility);
    message.PutSingle(zoomMin);
    message.PutSingle(zoomMax);
}

void LayerRecord::encodeStyleAndLabels(DWBUffer& message) const
{
    message.PutLong(drawColor);
    message.PutInteger(drawStyle);
    message.PutInteger(drawWidth);
    message.PutLong(fillColor);
    message.PutInteger(fillStyle);
    message.PutString(labelField);
    message.PutSingle(labelZoomMin);
    message.PutSingle(labelZoomMax);
    message.PutInteger(labelVisibility);
    message.PutInteger(labelBold);
    message.PutLong(labelColor);
}

LayerRecord LayerRecord::decode(DWBUffer& message)
{
    LayerRecord layer;
    layer.decodeSettings(message);
    layer.fields = readRecords<FieldRecord>(message, message.GetInteger(),
                                            FieldRecord::kMinimumSize, FieldRecord::decode);
    layer.classes = readRecords<ThematicClassRecord>(message, message.GetInteger(),
                                                     ThematicClassRecord::kMinimumSize,
                                                     ThematicClassRecord::decode);
    return layer;
}

void LayerRecord::decodeSettings(DWBUffer& message)
{
    name = message.GetString();
    id = message.GetLong();
    type = message.GetInteger();
    decodeGridAndZoom(message);
    decodeStyleAndLabels(message);
    thematicField = message.GetString();
    thematicType = message.GetInteger();
}

void LayerRecord::decodeGridAndZoom(DWBUffer& message)
{
    minCol = message.GetLong();
    minRow = message.GetLong();
    maxCol = message.GetLong();
    maxRow = message.GetLong();
    gridDeltaX = message.GetSingle();
    gridDeltaY = message.GetSingle();
    visibility = message.GetInteger();
    zoomMin = message.GetSingle();
    zoomMax = message.GetSingle();
}

void LayerRecord::decodeStyleAndLabels(DWBUffer& message)
{
    drawColor = message.GetLong();
    drawStyle = message.GetInteger();
    drawWidth = message.GetInteger();
    fillColor = message.GetLong();
    fillStyle = message.GetInteger();
    labelField = message.GetString();
    labelZoomMin = message.GetSingle();
    labelZoomMax = message.GetSingle();
    labelVisibility = message.GetInteger();
    labelBold = message.GetInteger();
    labelColor = message.GetLong();
}

} // namespace orbelan::messages
