#pragma once

#include "protocol/DWBUffer.h"
#include "protocol/messages/ThematicClassRecord.h"

namespace orbelan {

struct LoadContext;
class layer;

// Reply 103: one more field of a layer.
void loadFieldDefinition(DWBUffer& message, LoadContext& context);
// Adds a class after the layer's classes, as the map definition and reply
// 109 list them.
void addThematicClass(layer& mapLayer, const messages::ThematicClassRecord& themeClass);

// Reply 109: thematic classes added after a layer's classes, each as it is read.
void loadThematicClasses(DWBUffer& message, LoadContext& context);

} // namespace orbelan
