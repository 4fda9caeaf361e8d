#include "protocol/messages/MapDefinition.h"

#include "protocol/messages/MessageIO.h"

#include <utility>

namespace orbelan::messages {

void MapDefinition::encode(DWBUffer& message) const
{
    encodeHeader(message);
    message.PutInteger(shortCount(layers.size()));
    for (const LayerRecord& layer : layers) {
        layer.encode(message);
    }
}

void MapDefinition::encodeHeader(DWBUffer& message) const
{
    message.PutString(name);
    message.PutSingle(minX);
    message.PutSingle(minY);
    message.PutSingle(maxX);
    message.PutSingle(maxY);
    message.PutLong(background);
    message.PutInteger(projection);
}

MapDefinition MapDefinition::decode(DWBUffer& message)
{
    MapDefinition map;
    std::vector<LayerRecord> layers;
    decodeEach(message, map, {}, [&layers](LayerRecord&& layer) { layers.push_back(std::move(layer)); });
    map.layers = std::move(layers);
    return map;
}

void MapDefinition::decodeEach(DWBUffer& message, MapDefinition& map, const std::function<void(Field)>& afterField,
                               const std::function<void(LayerRecord&&)>& onLayer)
{
    decodeHeader(message, map, afterField);
    forEachRecord(message, message.GetInteger(), LayerRecord::decode, onLayer);
}

void MapDefinition::decodeHeader(DWBUffer& message, MapDefinition& map, const std::function<void(Field)>& afterField)
{
    const auto stored = [&afterField](Field field) {
        if (afterField) {
            afterField(field);
        }
    };
    map.name = message.GetString();
    stored(Field::Name);
    for (const auto& [value, field] : {std::pair{&map.minX, Field::MinX}, std::pair{&map.minY, Field::MinY},
                                       std::pair{&map.maxX, Field::MaxX}, std::pair{&map.maxY, Field::MaxY}}) {
        *value = message.GetSingle();
        stored(field);
    }
    map.background = message.GetLong();
    stored(Field::Background);
    map.projection = message.GetInteger();
    stored(Field::Projection);
}

} // namespace orbelan::messages
