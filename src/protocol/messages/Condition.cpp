#include "protocol/messages/Condition.h"

namespace orbelan::messages {

void Condition::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutString(field);
    message.PutInteger(fieldType);
    message.PutByte(op);
    message.PutString(value1);
    message.PutString(value2);
}

Condition Condition::decode(DWBUffer& message)
{
    Condition condition;
    condition.layer = message.GetLong();
    condition.field = message.GetString();
    condition.fieldType = message.GetInteger();
    condition.op = message.GetByte();
    condition.value1 = message.GetString();
    condition.value2 = message.GetString();
    return condition;
}

} // namespace orbelan::messages
