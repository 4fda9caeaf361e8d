#include "protocol/messages/ThematicClassRecord.h"

namespace orbelan::messages {

void ThematicClassRecord::encode(DWBUffer& message) const
{
    message.PutString(minimum);
    message.PutString(maximum);
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
    record.drawColor = message.GetLong();
    record.drawStyle = message.GetInteger();
    record.drawWidth = message.GetInteger();
    record.fillColor = message.GetLong();
    record.fillStyle = message.GetInteger();
    return record;
}

} // namespace orbelan::messages
