#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Reply 115: the bounding box of one element, in the layer's stored
// coordinates. An element the server cannot find is answered with an empty
// box, x1 > x2 and y1 > y2 (see none()).
struct ElementBoundingBox {
    static constexpr CommandCode kCode = CommandCode::ElementBoundingBox;
    static constexpr double kEmptyMin = 1e308;
    static constexpr double kEmptyMax = -1e308;

    std::int32_t layer = 0;
    std::int32_t element = 0;
    double x1 = kEmptyMin;
    double y1 = kEmptyMin;
    double x2 = kEmptyMax;
    double y2 = kEmptyMax;

    static ElementBoundingBox none(std::int32_t layer, std::int32_t element) { return {layer, element}; }
    bool empty() const { return x1 > x2 || y1 > y2; }
    void encode(DWBUffer& message) const;
    static ElementBoundingBox decode(DWBUffer& message);
    bool operator==(const ElementBoundingBox&) const = default;
};

} // namespace orbelan::messages
