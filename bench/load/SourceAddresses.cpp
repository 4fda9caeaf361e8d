#include "load/SourceAddresses.h"

#include <stdexcept>

namespace orbelan::load {

in_addr SourceAddresses::next()
{
    constexpr std::uint32_t kFirst = 0x7F000002; // 127.0.0.2
    constexpr std::uint32_t kLast = 0x7FFFFFFE;
    const std::uint32_t address = kFirst + given_ / kPerAddress;
    if (address > kLast) {
        throw std::length_error("more attacking connections than 127.0.0.0/8 has addresses for");
    }
    ++given_;
    return in_addr{htonl(address)};
}

} // namespace orbelan::load
