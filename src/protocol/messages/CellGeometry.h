#pragma once

#include "protocol/messages/CellElement.h"
#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace orbelan::messages {

// Reply 102: the elements filed in one grid cell, with the cell indices echoed
// as they were requested.
struct CellGeometry {
    static constexpr CommandCode kCode = CommandCode::CellGeometry;
    // The largest distance, in metres, that a vertex may move by travelling
    // as a Single offset instead of a Double.
    static constexpr double kRelativeTolerance = 0.01;

    std::int32_t layer = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    bool relative = false;
    WirePoint base;
    std::vector<CellElement> elements;

    // Sends the vertices as Single offsets from the centre of their extent
    // when every one of them then arrives within kRelativeTolerance of its
    // value, and as absolute Doubles otherwise.
    void chooseCoordinates();

    void encode(DWBUffer& message) const;
    static CellGeometry decode(DWBUffer& message);
    // Reads the cell's own fields into reply, then hands each element to
    // onElement as soon as it is whole (reply.elements stays as it was). A
    // message cut short has handed out the elements before the cut.
    static void decodeEach(DWBUffer& message, CellGeometry& reply,
                           const std::function<void(CellElement&&)>& onElement);
    bool operator==(const CellGeometry&) const = default;

private:
    bool survivesOffsetsFrom(const WirePoint& centre) const;
};

} // namespace orbelan::messages
