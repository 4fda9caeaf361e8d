#include "protocol/messages/FieldRecord.h"

namespace orbelan::messages {

void FieldRecord::encode(DWBUffer& message) const
{
    message.PutString(name);
    message.PutInteger(type);
}

FieldRecord FieldRecord::decode(DWBUffer& message)
{
    FieldRecord field;
    field.name = message.GetString();
    field.type = message.GetInteger();
    return field;
}

} // namespace orbelan::messages
