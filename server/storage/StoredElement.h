#pragma once

#include "protocol/messages/CellElement.h"

#include <QVariant>

#include <cstdint>
#include <vector>

namespace orbelan::server {

// An element to be written: its id within its layer (above 0), its vertices
// in degrees and its attribute values in the order of the layer's fields
// (missing trailing values are NULL).
struct StoredElement {
    std::int32_t id = 0;
    std::vector<messages::WirePoint> points;
    std::vector<QVariant> attributes;
};

} // namespace orbelan::server
