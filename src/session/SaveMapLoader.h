#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 241: the server's word on a saved map, told in a message box.
void loadSaveMapAnswer(DWBUffer& message, LoadContext& context);

} // namespace orbelan
