#pragma once

namespace orbelan {

class DWBUffer;
struct LoadContext;

// Reply 113: the elements that met a condition, each with its value of the
// condition's field, listed under the condition for the user to find them
// on the map.
void loadFindResult(DWBUffer& message, LoadContext& context);

} // namespace orbelan
