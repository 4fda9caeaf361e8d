#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace orbelan::server {

// The bytes of one whole reply, built once and never changed: the cache and
// every connection that sends it hold the same buffer.
using SharedReply = std::shared_ptr<const std::vector<std::uint8_t>>;

} // namespace orbelan::server
