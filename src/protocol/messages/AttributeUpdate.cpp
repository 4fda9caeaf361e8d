#include "protocol/messages/AttributeUpdate.h"

namespace orbelan::messages {

void AttributeUpdate::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(element);
    message.PutLong(cellI);
    message.PutLong(cellJ);
    message.PutLong(fieldNumber);
    message.PutInteger(fieldType);
    message.PutString(value);
}

AttributeUpdate AttributeUpdate::decode(DWBUffer& message)
{
    AttributeUpdate update;
    update.layer = message.GetLong();
    update.element = message.GetLong();
    update.cellI = message.GetLong();
    update.cellJ = message.GetLong();
    update.fieldNumber = message.GetLong();
    update.fieldType = message.GetInteger();
    update.value = message.GetString();
    return update;
}

} // namespace orbelan::messages
