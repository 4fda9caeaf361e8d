#pragma once

#include "configuration/LayerStyle.h"

namespace orbelan {

class CellRequester;
class layer;

// Gives the layer the style the layer setup chose. Its elements are put in
// the new classes at the next full redraw; a new theme field has its values
// asked for again for every cell the layer holds, and a new label field
// lets the layer's label texts go, so that the next view asks for them.
void restyleLayer(layer& target, LayerStyle style, CellRequester& cells);

} // namespace orbelan
