#include "protocol/messages/ElementBoundingBox.h"

namespace orbelan::messages {

void ElementBoundingBox::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(element);
    message.PutDouble(x1);
    message.PutDouble(y1);
    message.PutDouble(x2);
    message.PutDouble(y2);
}

ElementBoundingBox ElementBoundingBox::decode(DWBUffer& message)
{
    ElementBoundingBox box;
    box.layer = message.GetLong();
    box.element = message.GetLong();
    box.x1 = message.GetDouble();
    box.y1 = message.GetDouble();
    box.x2 = message.GetDouble();
    box.y2 = message.GetDouble();
    return box;
}

} // namespace orbelan::messages
