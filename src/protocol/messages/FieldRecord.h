#pragma once

#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// One attribute field of a layer as the map definition lists it: its name and
// its ADO data type code.
struct FieldRecord {
    static constexpr std::size_t kMinimumSize = 4;

    std::string name;
    std::int16_t type = 0;

    void encode(DWBUffer& message) const;
    static FieldRecord decode(DWBUffer& message);
    bool operator==(const FieldRecord&) const = default;
};

} // namespace orbelan::messages
