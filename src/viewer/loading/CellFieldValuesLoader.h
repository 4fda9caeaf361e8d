#pragma once

#include "DWBUffer.h"
#include "ServerConnection.h"

namespace orbelan {

class Viewer;

// Reply 105: one field's values for the elements of a grid cell. Label texts
// become the elements' label numbers, thematic values their classes, and
// direction values their direction marks. The map is redrawn by the control
// once no reply is awaited any more.
void loadCellFieldValues(DWBUffer& message, ServerConnection& connection, Viewer& viewer);

} // namespace orbelan
