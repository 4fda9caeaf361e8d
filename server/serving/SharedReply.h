#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace orbelan::server {

// The bytes of a reply, built once and shared by every connection that sends
// it: a reply kept in a cache is never copied per connection.
using SharedReply = std::shared_ptr<const std::vector<std::uint8_t>>;

} // namespace orbelan::server
