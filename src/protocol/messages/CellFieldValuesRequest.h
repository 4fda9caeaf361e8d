#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// Request 5: the values of one field for the elements of one grid cell
// (label texts or thematic values).
struct CellFieldValuesRequest {
    static constexpr CommandCode kCode = CommandCode::CellFieldValuesRequest;

    std::int32_t layer = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::string field;

    void encode(DWBUffer& message) const;
    static CellFieldValuesRequest decode(DWBUffer& message);
    bool operator==(const CellFieldValuesRequest&) const = default;
};

} // namespace orbelan::messages
