#include "protocol/messages/FieldDefinition.h"

namespace orbelan::messages {

void FieldDefinition::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutInteger(number);
    message.PutString(name);
    message.PutInteger(type);
}

FieldDefinition FieldDefinition::decode(DWBUffer& message)
{
    FieldDefinition field;
    field.layer = message.GetLong();
    field.number = message.GetInteger();
    field.name = message.GetString();
    field.type = message.GetInteger();
    return field;
}

} // namespace orbelan::messages
