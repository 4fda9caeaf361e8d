#include "MapDefinition.h"

#include "MessageIO.h"

namespace orbelan::messages {

void MapDefinition::encode(DWBUffer& message) const
{
    message.PutString(name);
    message.PutSingle(minX);
    message.PutSingle(minY);
    message.PutSingle(maxX);
    message.PutSingle(maxY);
    message.PutLong(background);
    message.PutInteger(projection);
    message.PutInteger(shortCount(layers.size()));
    for (const LayerRecord& layer : layers) {
        layer.encode(message);
    }
}

MapDefinition MapDefinition::decode(DWBUffer& message)
{
    MapDefinition map;
    map.name = message.GetString();
    map.minX = message.GetSingle();
    map.minY = message.GetSingle();
    map.maxX = message.GetSingle();
    map.maxY = message.GetSingle();
    map.background = message.GetLong();
    map.projection = message.GetInteger();
    map.layers = readRecords<LayerRecord>(message, message.GetInteger(), LayerRecord::kMinimumSize,
                                          LayerRecord::decode);
    return map;
}

} // namespace orbelan::messages
