#pragma once

#include "protocol/messages/FieldRecord.h"

#include <string>
#include <vector>

namespace orbelan::server {

// A layer's fields as stored, in order.
struct LayerFields {
    std::vector<messages::FieldRecord> fields;

    // The field of that name, told apart without regard to case as the
    // store's field names are; nullptr when the layer has none.
    const messages::FieldRecord* named(const std::string& name) const;
};

} // namespace orbelan::server
