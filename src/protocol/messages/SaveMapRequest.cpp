#include "protocol/messages/SaveMapRequest.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

void SaveMapRequest::encode(DWBUffer& message) const
{
    message.PutLong(user);
    message.PutLong(map);
    message.PutString(name);
    message.PutSingle(minX);
    message.PutSingle(minY);
    message.PutSingle(maxX);
    message.PutSingle(maxY);
    message.PutLong(background);
    message.PutInteger(projection);
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
    request.name = message.GetString();
    request.minX = message.GetSingle();
    request.minY = message.GetSingle();
    request.maxX = message.GetSingle();
    request.maxY = message.GetSingle();
    request.background = message.GetLong();
    request.projection = message.GetInteger();
    request.layers = readRecords<SavedLayerRecord>(message, message.GetInteger(), SavedLayerRecord::kMinimumSize,
                                                   SavedLayerRecord::decode);
    return request;
}

} // namespace orbelan::messages
