#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 110: access granted (0) asks for the map definition, once; any other
// answer is told to the user and nothing more is asked for.
void loadAccessAnswer(DWBUffer& message, LoadContext& context);
// Reply 111: each layer's access level for this user, then the map is shown
// whole, which asks for the cells of the view.
void loadLayerAccessLevels(DWBUffer& message, LoadContext& context);

} // namespace orbelan
