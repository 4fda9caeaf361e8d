#pragma once

#include <cstdint>

namespace orbelan::server {

// What a connection remembers: whether it has passed the access request, and
// for which user and map.
struct SessionState {
    bool passed = false;
    std::int32_t user = 0;
    std::int32_t map = 0;
};

} // namespace orbelan::server
