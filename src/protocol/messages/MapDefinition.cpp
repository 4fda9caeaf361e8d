#include "protocol/messages/MapDefinition.h"

#include "protocol/messages/MessageIO.h"

#include <utility>

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
    std::vector<LayerRecord> layers;
    decodeEach(message, map, {}, [&layers](LayerRecord&& layer) { layers.push_back(std::move(layer)); });
    map.layers = std::move(layers);
    return map;
}

void MapDefinition::decodeEach(DWBUffer& message, MapDefinition& map, const std::function<void(Field)>& afterField,
                               const std::function<void(LayerRecord&&)>& onLayer)
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
    forEachRecord(message, message.GetInteger(), LayerRecord::decode, onLayer);
}

} // namespace orbelan::messages
