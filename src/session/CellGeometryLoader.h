#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 102: the elements of one grid cell of a layer, each added as it is
// read. Once the cell is complete the layer counts as loaded and, when it
// has a thematic field, that field's values for the cell are asked for. The
// map is redrawn once no reply is awaited any more, not here.
void loadCellGeometry(DWBUffer& message, LoadContext& context);

} // namespace orbelan
