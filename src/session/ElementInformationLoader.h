#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 104: the values of one element. A reply without information, or for
// a layer the client does not hold, ends there. Asked for editing, the
// values may be changed and sent back; otherwise they go to the host as an
// event or into the information dialog, as the request asked. Then the map
// is redrawn.
void loadElementInformation(DWBUffer& message, LoadContext& context);

} // namespace orbelan
