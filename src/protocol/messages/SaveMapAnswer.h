#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Reply 241: 0 the map was saved, 1 the name is empty or already one of the
// user's maps, 1000 the store failed; any other result (2: the user may not
// save that map) the client passes over in silence.
struct SaveMapAnswer {
    static constexpr CommandCode kCode = CommandCode::SaveMapAnswer;
    static constexpr std::int16_t kSaved = 0;
    static constexpr std::int16_t kInvalidName = 1;
    static constexpr std::int16_t kRefused = 2;
    static constexpr std::int16_t kUnexpectedError = 1000;

    std::int16_t result = kUnexpectedError;

    void encode(DWBUffer& message) const { message.PutInteger(result); }
    static SaveMapAnswer decode(DWBUffer& message) { return {message.GetInteger()}; }
    bool operator==(const SaveMapAnswer&) const = default;
};

} // namespace orbelan::messages
