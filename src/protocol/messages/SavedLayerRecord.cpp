#include "protocol/messages/SavedLayerRecord.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

namespace {

ThematicClassRecord decodeSavedClass(DWBUffer& message)
{
    ThematicClassRecord themeClass;
    themeClass.decodeStyle(message);
    themeClass.minimum = message.GetString();
    themeClass.maximum = message.GetString();
    return themeClass;
}

} // namespace

void SavedLayerRecord::encode(DWBUffer& message) const
{
    message.PutString(settings.name);
    message.PutLong(settings.id);
    message.PutInteger(settings.type);
    settings.encodeGridAndZoom(message);
    settings.encodeStyleAndLabels(message);
    message.PutString(settings.thematicField);
    message.PutInteger(settings.thematicType);
    message.PutInteger(classCount);
    for (const ThematicClassRecord& themeClass : settings.classes) {
        themeClass.encodeStyle(message);
        message.PutString(themeClass.minimum);
        message.PutString(themeClass.maximum);
    }
}

SavedLayerRecord SavedLayerRecord::decode(DWBUffer& message)
{
    SavedLayerRecord record;
    LayerRecord& layer = record.settings;
    layer.name = message.GetString();
    layer.id = message.GetLong();
    layer.type = message.GetInteger();
    layer.decodeGridAndZoom(message);
    layer.decodeStyleAndLabels(message);
    layer.thematicField = message.GetString();
    layer.thematicType = message.GetInteger();
    record.classCount = message.GetInteger();
    layer.classes = readRecords<ThematicClassRecord>(message, record.classCount, ThematicClassRecord::kMinimumSize,
                                                     decodeSavedClass);
    return record;
}

} // namespace orbelan::messages
