#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/ThematicClassRecord.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace orbelan::messages {

// Reply 109: the thematic classes of a layer, after its default class.
struct ThematicClasses {
    static constexpr CommandCode kCode = CommandCode::ThematicClasses;

    std::int32_t layer = 0;
    std::vector<ThematicClassRecord> classes;

    void encode(DWBUffer& message) const;
    static ThematicClasses decode(DWBUffer& message);
    // Reads the layer into reply, then hands each class to onClass as soon
    // as it is whole (reply.classes stays as it was). A message cut short
    // has handed out the classes before the cut.
    static void decodeEach(DWBUffer& message, ThematicClasses& reply,
                           const std::function<void(ThematicClassRecord&&)>& onClass);
    bool operator==(const ThematicClasses&) const = default;
};

} // namespace orbelan::messages
