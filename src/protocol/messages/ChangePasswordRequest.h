#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>

namespace orbelan::messages {

// Request 120: a user's new password, with the old one as proof.
struct ChangePasswordRequest {
    static constexpr CommandCode kCode = CommandCode::ChangePassword;

    std::int32_t user = 0;
    std::string oldPassword;
    std::string newPassword;

    void encode(DWBUffer& message) const
    {
        message.PutLong(user);
        message.PutString(oldPassword);
        message.PutString(newPassword);
    }
    static ChangePasswordRequest decode(DWBUffer& message)
    {
        ChangePasswordRequest request;
        request.user = message.GetLong();
        request.oldPassword = message.GetString();
        request.newPassword = message.GetString();
        return request;
    }
    bool operator==(const ChangePasswordRequest&) const = default;
};

} // namespace orbelan::messages
