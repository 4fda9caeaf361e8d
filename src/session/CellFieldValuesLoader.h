#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 105: one field's values for the elements of a grid cell. Label texts
// become the elements' label numbers, thematic values their classes, and
// direction values their direction marks. The map is redrawn once no reply
// is awaited any more.
void loadCellFieldValues(DWBUffer& message, LoadContext& context);

} // namespace orbelan
