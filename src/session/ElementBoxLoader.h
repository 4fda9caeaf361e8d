#pragma once

#include "protocol/DWBUffer.h"

namespace orbelan {

struct LoadContext;

// Reply 115: the box of one element. When its request asked for a zoom, the
// view shows the box with a margin of 0.001 map units on every side; an
// empty box (the element does not exist) changes nothing.
void loadElementBoundingBox(DWBUffer& message, LoadContext& context);

} // namespace orbelan
