#include "session/LayerDefinitionLoader.h"

#include "protocol/messages/FieldDefinition.h"
#include "session/LoadContext.h"
#include "model/MapDocument.h"
#include "protocol/messages/ThematicClasses.h"

namespace orbelan {

void addThematicClass(layer& mapLayer, const messages::ThematicClassRecord& themeClass)
{
    mapLayer.ThematicMap().Add(themeClass.drawStyle, themeClass.drawWidth, themeClass.drawColor,
                               themeClass.fillColor, themeClass.fillStyle, themeClass.minimum, themeClass.maximum);
}

// A field of a layer the map does not have is dropped.
void loadFieldDefinition(DWBUffer& message, LoadContext& context)
{
    const messages::FieldDefinition field = messages::FieldDefinition::decode(message);
    if (layer* mapLayer = context.document.Layers().Find(field.layer)) {
        mapLayer->Campos().Add(field.name, field.type);
    }
}

// Classes of a layer the map does not have are dropped.
void loadThematicClasses(DWBUffer& message, LoadContext& context)
{
    messages::ThematicClasses reply;
    messages::ThematicClasses::decodeEach(message, reply, [&](messages::ThematicClassRecord&& themeClass) {
        if (layer* mapLayer = context.document.Layers().Find(reply.layer)) {
            addThematicClass(*mapLayer, themeClass);
        }
    });
}

} // namespace orbelan
