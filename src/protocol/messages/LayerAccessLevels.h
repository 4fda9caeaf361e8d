#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace orbelan::messages {

// Reply 111: one access level (0 none, 1 viewer, 2 editor, 3 draw) per layer.
struct LayerAccessLevels {
    static constexpr CommandCode kCode = CommandCode::LayerAccessLevels;

    struct Entry {
        std::int32_t layer = 0;
        std::int16_t level = 0;
        bool operator==(const Entry&) const = default;
    };

    std::vector<Entry> levels;

    void encode(DWBUffer& message) const;
    static LayerAccessLevels decode(DWBUffer& message);
    // Hands each entry to onEntry as soon as it is read; a message cut short
    // has handed out the entries before the cut.
    static void decodeEach(DWBUffer& message, const std::function<void(const Entry&)>& onEntry);
    bool operator==(const LayerAccessLevels&) const = default;
};

} // namespace orbelan::messages
