#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::messages {

// Reply 112: the user's id, the version of the current client and the maps
// the user may open. An id below 1 refuses the login and nothing follows it.
struct LoginAnswer {
    static constexpr CommandCode kCode = CommandCode::LoginAnswer;

    struct Version {
        std::int16_t major = 0;
        std::int16_t minor = 0;
        std::int16_t revision = 0;
        auto operator<=>(const Version&) const = default;
    };
    struct Map {
        std::int32_t code = 0;
        std::string name;
        bool operator==(const Map&) const = default;
    };

    std::int32_t userId = 0;
    Version clientVersion;
    std::vector<Map> maps;

    bool accepted() const { return userId >= 1; }
    static LoginAnswer refused(std::int32_t userId = 0) { return {userId, {}, {}}; }
    void encode(DWBUffer& message) const;
    static LoginAnswer decode(DWBUffer& message);
    bool operator==(const LoginAnswer&) const = default;
};

} // namespace orbelan::messages
