#pragma once

#include "protocol/messages/CellGeometryRequest.h"

#include <netinet/in.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace orbelan::load {

// The cell with the biggest reply: of the World map's countries when the
// store has them, else of the Santiago map.
struct LargestCell {
    static constexpr std::int32_t kWorldMap = 3;
    static constexpr std::int32_t kCountriesLayer = 301;

    std::int32_t map = 0;
    messages::CellGeometryRequest cell;
    std::size_t replyBytes = 0;
    // Says so when the Santiago map stood in for the World map.
    std::string note;

    // Asks for every cell of the layer (or map) with one client, in turn.
    static LargestCell find(const sockaddr_in& server);
};

} // namespace orbelan::load
