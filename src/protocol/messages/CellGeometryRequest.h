#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Request 2: the elements of one grid cell of a layer. The client sends the
// row as the first index and the column as the second.
struct CellGeometryRequest {
    static constexpr CommandCode kCode = CommandCode::CellGeometryRequest;

    std::int32_t layer = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;

    void encode(DWBUffer& message) const;
    static CellGeometryRequest decode(DWBUffer& message);
    bool operator==(const CellGeometryRequest&) const = default;
};

} // namespace orbelan::messages
