#pragma once

#include <netinet/in.h>

#include <cstdint>

namespace orbelan::load {

// Local addresses for attacking connections: 127.0.0.2, 127.0.0.3 ... with at
// most kPerAddress connections each, so that a per-address cap on the server
// does not decide a row by itself. The well-behaved client keeps 127.0.0.1.
class SourceAddresses {
public:
    static constexpr std::uint32_t kPerAddress = 50;

    in_addr next();
    // How many addresses have been handed out so far.
    std::uint32_t used() const { return (given_ + kPerAddress - 1) / kPerAddress; }

private:
    std::uint32_t given_ = 0;
};

} // namespace orbelan::load
