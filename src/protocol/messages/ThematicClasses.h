#pragma once

#include "CommandCatalogue.h"
#include "DWBUffer.h"
#include "ThematicClassRecord.h"

#include <cstdint>
#include <vector>

namespace orbelan::messages {

// Reply 109: the thematic classes of a layer, after its default class.
struct ThematicClasses {
    static constexpr CommandCode kCode = CommandCode::ThematicClasses;

    std::int32_t layer = 0;
    std::vector<ThematicClassRecord> classes;

    void encode(DWBUffer& message) const;
    static ThematicClasses decode(DWBUffer& message);
    bool operator==(const ThematicClasses&) const = default;
};

} // namespace orbelan::messages
