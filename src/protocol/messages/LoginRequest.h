#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <string>

namespace orbelan::messages {

// Request 12: a user name and password, sent by the login control on a
// connection of its own.
struct LoginRequest {
    static constexpr CommandCode kCode = CommandCode::Login;

    std::string user;
    std::string password;

    void encode(DWBUffer& message) const
    {
        message.PutString(user);
        message.PutString(password);
    }
    static LoginRequest decode(DWBUffer& message)
    {
        std::string user = message.GetString();
        return {std::move(user), message.GetString()};
    }
    bool operator==(const LoginRequest&) const = default;
};

} // namespace orbelan::messages
