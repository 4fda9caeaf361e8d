#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>

namespace orbelan::messages {

// Reply 121: 0 the password was changed, 1 the old password was wrong; the
// client shows nothing for any other result.
struct ChangePasswordAnswer {
    static constexpr CommandCode kCode = CommandCode::ChangePasswordAnswer;
    static constexpr std::int16_t kChanged = 0;
    static constexpr std::int16_t kWrongPassword = 1;

    std::int16_t result = kWrongPassword;

    void encode(DWBUffer& message) const { message.PutInteger(result); }
    static ChangePasswordAnswer decode(DWBUffer& message) { return {message.GetInteger()}; }
    bool operator==(const ChangePasswordAnswer&) const = default;
};

} // namespace orbelan::messages
