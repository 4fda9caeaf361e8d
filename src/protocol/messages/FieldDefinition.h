#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// Reply 103: one field of a layer, with its 1-based number in the layer.
struct FieldDefinition {
    static constexpr CommandCode kCode = CommandCode::FieldDefinition;

    std::int32_t layer = 0;
    std::int16_t number = 0;
    std::string name;
    std::int16_t type = 0;

    void encode(DWBUffer& message) const;
    static FieldDefinition decode(DWBUffer& message);
    bool operator==(const FieldDefinition&) const = default;
};

} // namespace orbelan::messages
