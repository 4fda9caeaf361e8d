#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orbelan::messages {

// Reply 105: the values of one field for the elements of a cell. Each distinct
// value travels once; the elements refer to it by its 1-based number.
struct CellFieldValues {
    static constexpr CommandCode kCode = CommandCode::CellFieldValues;

    struct Reference {
        std::int32_t element = 0;
        std::int32_t value = 0;
        bool operator==(const Reference&) const = default;
    };

    std::int32_t layer = 0;
    std::string field;
    std::vector<Reference> references;
    std::vector<std::string> values;

    void encode(DWBUffer& message) const;
    static CellFieldValues decode(DWBUffer& message);
    // Reads the layer and field into reply, then hands each reference and
    // each value to its callback as soon as it is read (the lists in reply
    // stay as they were). A message cut short has handed out everything
    // before the cut.
    static void decodeEach(DWBUffer& message, CellFieldValues& reply,
                           const std::function<void(const Reference&)>& onReference,
                           const std::function<void(std::string&&)>& onValue);
    bool operator==(const CellFieldValues&) const = default;
};

} // namespace orbelan::messages
