#include "protocol/messages/ElementBoundingBoxRequest.h"

namespace orbelan::messages {

void ElementBoundingBoxRequest::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(element);
}

ElementBoundingBoxRequest ElementBoundingBoxRequest::decode(DWBUffer& message)
{
    ElementBoundingBoxRequest request;
    request.layer = message.GetLong();
    request.element = message.GetLong();
    return request;
}

} // namespace orbelan::messages
