#pragma once

namespace orbelan {

class DWBUffer;
struct LoadContext;

// Reply 106: the statistics of a field that the layer setup asked for,
// handed to the control, which shows its layer setup again with them.
void loadFieldStatistics(DWBUffer& message, LoadContext& context);

} // namespace orbelan
