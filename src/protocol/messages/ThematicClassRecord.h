#pragma once

#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// One thematic class: the values it covers (both as text) and how its
// elements are drawn. The same record travels in the map definition and in
// reply 109.
struct ThematicClassRecord {
    static constexpr std::size_t kMinimumSize = 18;

    std::string minimum;
    std::string maximum;
    std::int32_t drawColor = 0;
    std::int16_t drawStyle = 0;
    std::int16_t drawWidth = 1;
    std::int32_t fillColor = 0;
    std::int16_t fillStyle = 0;

    void encode(DWBUffer& message) const;
    static ThematicClassRecord decode(DWBUffer& message);
    bool operator==(const ThematicClassRecord&) const = default;

    // The five style fields alone, in wire order.
    void encodeStyle(DWBUffer& message) const;
    void decodeStyle(DWBUffer& message);
};

} // namespace orbelan::messages
