#include "protocol/messages/AccessRequest.h"

namespace orbelan::messages {

void AccessRequest::encode(DWBUffer& message) const
{
    message.PutLong(user);
    message.PutLong(map);
}

AccessRequest AccessRequest::decode(DWBUffer& message)
{
    AccessRequest request;
    request.user = message.GetLong();
    request.map = message.GetLong();
    return request;
}

} // namespace orbelan::messages
