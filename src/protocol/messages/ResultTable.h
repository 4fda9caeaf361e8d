#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Reply 114: a table of elements, one row per element: its id, then its
// values as text in the order of the layer's fields. The column count
// includes the id column. A table whose only row has id 0 means "none found".
struct ResultTable {
    static constexpr CommandCode kCode = CommandCode::ResultTable;

    std::int32_t layer = 0;
    std::int16_t columns = 1;
    std::vector<std::int32_t> ids;
    // Row after row, columns - 1 texts each.
    std::vector<std::string> values;

    std::size_t rowCount() const { return ids.size(); }
    std::size_t valuesPerRow() const { return columns > 1 ? static_cast<std::size_t>(columns - 1) : 0; }
    // The text of value column (0-based, after the id) of a row.
    const std::string& value(std::size_t row, std::size_t column) const { return values[row * valuesPerRow() + column]; }

    void encode(DWBUffer& message) const;
    static ResultTable decode(DWBUffer& message);
    bool operator==(const ResultTable&) const = default;
};

} // namespace orbelan::messages
