#pragma once

#include <cstdint>
#include <unordered_map>

namespace orbelan::server {

// What a connection remembers: whether it has passed the access request, for
// which user and map, and the user's levels on the visible layers asked about
// so far (levels given while a connection is open apply to the next connection).
struct SessionState {
    bool passed = false;
    std::int32_t user = 0;
    std::int32_t map = 0;
    std::unordered_map<std::int32_t, std::int16_t> levels;
};

} // namespace orbelan::server
