#include "protocol/messages/LayerAccessLevelsRequest.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

void LayerAccessLevelsRequest::encode(DWBUffer& message) const
{
    message.PutLong(user);
    message.PutInteger(shortCount(layers.size()));
    for (const std::int32_t layer : layers) {
        message.PutLong(layer);
    }
}

LayerAccessLevelsRequest LayerAccessLevelsRequest::decode(DWBUffer& message)
{
    LayerAccessLevelsRequest request;
    request.user = message.GetLong();
    request.layers = readRecords<std::int32_t>(message, message.GetInteger(), 4,
                                               [](DWBUffer& m) { return m.GetLong(); });
    return request;
}

} // namespace orbelan::messages
