#pragma once

#include "model/KeyedCollection.h"
#include "model/ParentMap.h"
#include "model/TipoLayer.h"
#include "model/layer.h"

#include <cstdint>
#include <string>

namespace orbelan {

// The layers of the loaded map, keyed by the decimal text of IDLayer. The
// order is the drawing order: position 1 is drawn first, under the others.
class Layers : public KeyedCollection<layer, std::int32_t> {
public:
    // A selectable, visible layer at the end, with the Viewer's number for
    // the image of the same name. DuplicateKeyError when the key is taken.
    layer& AddLayer(const std::string& name, std::int32_t key, TipoLayer kind, const ParentMap& viewer);

    // Moves the layer under key to a 1-based position: it is taken out and
    // put back before the layer then at that position, or at the end when
    // the position is past the last. Nothing happens when the layer at the
    // position has the same IDLayer. std::invalid_argument for an unknown
    // key, std::out_of_range for a position where there is no layer.
    void MoveLayer(std::int32_t key, std::int32_t position);
};

} // namespace orbelan
