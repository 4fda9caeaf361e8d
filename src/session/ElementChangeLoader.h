#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Message 250: an element was added, deleted, moved or given new values, a
// layer's grid bounds changed, or cells' values are to be read again. The
// change is applied to the layer the client holds, and the map is redrawn
// when the layer is visible. A change for a layer the client does not hold,
// or a new geometry for an element it does not hold, is read and ignored.
void loadElementChange(DWBUffer& message, LoadContext& context);

} // namespace orbelan
