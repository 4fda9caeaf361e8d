#pragma once

#include "DWBUffer.h"
#include "ServerConnection.h"
#include "ThematicClassRecord.h"

namespace orbelan {

class Viewer;
class layer;

// Reply 103: one more field of a layer.
void loadFieldDefinition(DWBUffer& message, ServerConnection& connection, Viewer& viewer);
// Adds a class after the layer's classes, as the map definition and reply
// 109 list them.
void addThematicClass(layer& mapLayer, const messages::ThematicClassRecord& themeClass);

// Reply 109: thematic classes added after a layer's classes, each as it is read.
void loadThematicClasses(DWBUffer& message, ServerConnection& connection, Viewer& viewer);

} // namespace orbelan
