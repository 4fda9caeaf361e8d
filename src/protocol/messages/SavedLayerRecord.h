#pragma once

#include "protocol/DWBUffer.h"
#include "protocol/messages/LayerRecord.h"

#include <cstdint>

namespace orbelan::messages {

// One layer of a saved map: the fields of the map definition's layer record
// up to the thematic type, without the field list, then the class count and
// the classes after the default one, each with its style first and its two
// values last.
//
// The count travels as it was given: the client writes the number of its
// classes minus one whatever their values, so that a count which overstates
// the classes sent is the sender's to avoid. A decoded record holds as many
// classes as its count says.
struct SavedLayerRecord {
    // The map definition's record less its field count.
    static constexpr std::size_t kMinimumSize = LayerRecord::kMinimumSize - 2;

    // Everything but fields and classes is used.
    LayerRecord settings;
    std::int16_t classCount = 0;

    void encode(DWBUffer& message) const;
    static SavedLayerRecord decode(DWBUffer& message);
    bool operator==(const SavedLayerRecord&) const = default;
};

} // namespace orbelan::messages
