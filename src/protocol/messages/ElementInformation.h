#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/TypedValue.h"

#include <cstdint>
#include <vector>

namespace orbelan::messages {

// Reply 104: the attribute values of one element, in the order of the
// layer's fields, each with its field type code. An element the server has
// no information on is answered with a count of -1 (see none()).
struct ElementInformation {
    static constexpr CommandCode kCode = CommandCode::ElementInformation;

    std::int32_t layer = 0;
    std::int32_t element = 0;
    bool known = true;
    std::vector<TypedValue> values;

    static ElementInformation none(std::int32_t layer, std::int32_t element) { return {layer, element, false, {}}; }
    void encode(DWBUffer& message) const;
    static ElementInformation decode(DWBUffer& message);
    bool operator==(const ElementInformation&) const = default;
};

} // namespace orbelan::messages
