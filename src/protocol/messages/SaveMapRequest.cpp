#include "protocol/messages/SaveMapRequest.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

void SaveMapRequest::encode(DWBUffer& message) const
{
    message.PutLong(user);
    message.PutLong(map);
    definition.encodeHeader(message);
    message.PutInteger(shortCount(layers.size()));
    for (const SavedLayerRecord& layer : layers) {
        layer.encode(message);
    }
}

SaveMapRequest SaveMapRequest::decode(DWBUffer& message)
{
    SaveMapRequest request;
    request.user = message.GetLong();
    request.map = message.GetLong();
    MapDefinition::decodeHeader(message, request.definition, {});
    request.layers = readRecords<SavedLayerRecord>(message, message.GetInteger(), SavedLayerRecord::kMinimumSize,
                                                   SavedLayerRecord::decode);
    return request;
}

} // namespace orbelan::messages
