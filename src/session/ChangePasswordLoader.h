#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 121: tells the user whether the password was changed (0) or the
// old one was wrong (1); any other result shows nothing.
void loadChangePasswordAnswer(DWBUffer& message, LoadContext& context);

} // namespace orbelan
