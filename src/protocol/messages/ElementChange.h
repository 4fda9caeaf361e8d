#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/CellElement.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Message 250: the server tells of a change to an element, without a request
// having asked. Which sections it carries depends on the operation.
struct ElementChange {
    static constexpr CommandCode kCode = CommandCode::ElementChangeNotification;

    enum Operation : std::int16_t {
        NewElement = 1,
        Deleted = 2,
        ValuesChanged = 3,
        GridBoundsChanged = 4,
        CellsToRefresh = 5,
        GeometryChanged = 6,
    };

    std::int16_t operation = 0;
    std::int32_t layer = 0;
    std::int32_t element = 0;
    // New element and geometry changed.
    std::vector<WirePoint> points;
    // New element and values changed: in the order of the layer's fields.
    std::vector<std::string> values;
    // Grid bounds changed: minCol, minRow, maxCol, maxRow.
    std::array<std::int32_t, 4> gridBounds{};
    // Cells to refresh: the first and the second index of each cell.
    std::vector<std::int32_t> cellI;
    std::vector<std::int32_t> cellJ;

    bool carriesPoints() const { return operation == NewElement || operation == GeometryChanged; }
    bool carriesValues() const { return operation == NewElement || operation == ValuesChanged; }

    void encode(DWBUffer& message) const;
    static ElementChange decode(DWBUffer& message);
    bool operator==(const ElementChange&) const = default;
};

} // namespace orbelan::messages
