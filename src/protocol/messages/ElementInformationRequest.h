#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Request 4: the attribute values of one element.
struct ElementInformationRequest {
    static constexpr CommandCode kCode = CommandCode::ElementInformationRequest;

    std::int32_t layer = 0;
    std::int32_t element = 0;

    void encode(DWBUffer& message) const
    {
        message.PutLong(layer);
        message.PutLong(element);
    }
    static ElementInformationRequest decode(DWBUffer& message)
    {
        const std::int32_t layer = message.GetLong();
        return {layer, message.GetLong()};
    }
    bool operator==(const ElementInformationRequest&) const = default;
};

} // namespace orbelan::messages
