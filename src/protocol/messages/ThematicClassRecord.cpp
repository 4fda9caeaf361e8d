#include "protocol/messages/ThematicClassRecord.h"

namespace orbelan::messages {

void ThematicClassRecord::encode(DWBUffer& message) const
{
    message.PutString(minimum);
    message.PutString(maximum);
    encodeStyle(message);
}

void ThematicClassRecord::encodeStyle(DWBUffer& message) const
{
    message.PutLong(drawColor);
    message.PutInteger(drawStyle);
    message.PutInteger(drawWidth);
    message.PutLong(fillColor);
    message.PutInteger(fillStyle);
}

ThematicClassRecord ThematicClassRecord::decode(DWBUffer& message)
{
    ThematicClassRecord record;
    record.minimum = message.GetString();
    record.maximum = message.GetString();
    record.decodeStyle(message);
    return record;
}

void ThematicClassRecord::decodeStyle(DWBUffer& message)
{
    drawColor = message.GetLong();
    drawStyle = message.GetInteger();
    drawWidth = message.GetInteger();
    fillColor = message.GetLong();
    fillStyle = message.GetInteger();
}

} // namespace orbelan::messages
