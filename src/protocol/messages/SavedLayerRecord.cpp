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
    settings.encodeSettings(message);
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
    record.settings.decodeSettings(message);
    record.classCount = message.GetInteger();
    record.settings.classes = readRecords<ThematicClassRecord>(message, record.classCount, ThematicClassRecord::kMinimumSize,
                                                     decodeSavedClass);
    return record;
}

} // namespace orbelan::messages
