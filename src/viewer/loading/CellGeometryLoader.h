#pragma once

#include "DWBUffer.h"
#include "ServerConnection.h"

namespace orbelan {

class Viewer;

// Reply 102: the elements of one grid cell of a layer, each added as it is
// read. Once the cell is complete the layer counts as loaded and, when it
// has a thematic field, that field's values for the cell are asked for. The
// map is redrawn by the control once no reply is awaited any more, not here.
void loadCellGeometry(DWBUffer& message, ServerConnection& connection, Viewer& viewer);

} // namespace orbelan
