#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 101: the map's name, extent, background and projection, then its
// layers, each added whole as its record is read. Only a complete definition
// asks for the layers' access levels and raises MapLoaded; one cut short
// keeps what it had set and the layers read so far.
void loadMapDefinition(DWBUffer& message, LoadContext& context);

} // namespace orbelan
