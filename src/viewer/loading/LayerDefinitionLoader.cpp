#include "LayerDefinitionLoader.h"

#include "FieldDefinition.h"
#include "MessageIO.h"
#include "Viewer.h"

#include <cstdint>

namespace orbelan {

void addThematicClass(layer& mapLayer, const messages::ThematicClassRecord& themeClass)
{
    mapLayer.ThematicMap().Add(themeClass.drawStyle, themeClass.drawWidth, themeClass.drawColor,
                               themeClass.fillColor, themeClass.fillStyle, themeClass.minimum, themeClass.maximum);
}

// A field of a layer the map does not have is dropped.
void loadFieldDefinition(DWBUffer& message, ServerConnection& connection, Viewer& viewer)
{
    connection.replyHandled();
    const messages::FieldDefinition field = messages::FieldDefinition::decode(message);
    if (layer* mapLayer = viewer.Layers().Find(field.layer)) {
        mapLayer->Campos().Add(field.name, field.type);
    }
}

void loadThematicClasses(DWBUffer& message, ServerConnection& connection, Viewer& viewer)
{
    connection.replyHandled();
    layer* mapLayer = viewer.Layers().Find(message.GetLong());
    const std::size_t count = messages::recordCount(message.GetInteger());
    if (mapLayer == nullptr) {
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        addThematicClass(*mapLayer, messages::ThematicClassRecord::decode(message));
    }
}

} // namespace orbelan
