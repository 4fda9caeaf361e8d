#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// Request 220: a new value for one field of one element. The cell is where
// the client holds the element; the server finds the element's cells itself
// and does not rely on it.
struct AttributeUpdate {
    static constexpr CommandCode kCode = CommandCode::AttributeUpdate;

    std::int32_t layer = 0;
    std::int32_t element = 0;
    std::int32_t cellI = 0;
    std::int32_t cellJ = 0;
    // The field's position among the layer's fields, from 1.
    std::int32_t fieldNumber = 0;
    std::int16_t fieldType = 0;
    std::string value;

    void encode(DWBUffer& message) const;
    static AttributeUpdate decode(DWBUffer& message);
    bool operator==(const AttributeUpdate&) const = default;
};

} // namespace orbelan::messages
