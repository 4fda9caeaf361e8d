#pragma once

namespace orbelan {

class DWBUffer;
struct LoadContext;

// Reply 114: a table of elements of one layer, shown as the last query of
// elements asked: in the information grid, whose changes are sent back as
// one update of all the elements, or as a list from which an element is
// opened for editing.
void loadResultTable(DWBUffer& message, LoadContext& context);

} // namespace orbelan
