#include "protocol/messages/MapDefinitionRequest.h"

namespace orbelan::messages {

void MapDefinitionRequest::encode(DWBUffer& message) const
{
    message.PutLong(map);
}

MapDefinitionRequest MapDefinitionRequest::decode(DWBUffer& message)
{
    return MapDefinitionRequest{message.GetLong()};
}

} // namespace orbelan::messages
