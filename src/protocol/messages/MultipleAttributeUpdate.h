#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Request 221: new values for some fields, the same for every listed
// element, with the grid cells that the elements' union box covers.
struct MultipleAttributeUpdate {
    static constexpr CommandCode kCode = CommandCode::MultipleAttributeUpdate;

    struct FieldValue {
        std::string field;
        std::int16_t fieldType = 0;
        std::string value;
        bool operator==(const FieldValue&) const = default;
    };

    std::int32_t layer = 0;
    std::vector<std::int32_t> elements;
    // The first and the second index of each cell, same length.
    std::vector<std::int32_t> cellI;
    std::vector<std::int32_t> cellJ;
    std::vector<FieldValue> fields;

    void encode(DWBUffer& message) const;
    static MultipleAttributeUpdate decode(DWBUffer& message);
    bool operator==(const MultipleAttributeUpdate&) const = default;
};

} // namespace orbelan::messages
