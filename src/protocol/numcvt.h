#pragma once

// The eight byte conversions every message field goes through. Multi-byte
// values travel little-endian: b1 is the byte that stands first in the
// message and holds the least significant bits. Each bytes2... is the exact
// inverse of its ...2bytes partner for every bit pattern, NaN payloads and
// negative zero included, because floats are moved as raw bits.

#include <bit>
#include <cstdint>

namespace orbelan::numcvt {

inline void short2bytes(std::int16_t value, std::uint8_t& b1, std::uint8_t& b2)
{
    const auto bits = static_cast<std::uint16_t>(value);
    b1 = static_cast<std::uint8_t>(bits);
    b2 = static_cast<std::uint8_t>(bits >> 8);
}

inline void int2bytes(std::int32_t value, std::uint8_t& b1, std::uint8_t& b2, std::uint8_t& b3,
                      std::uint8_t& b4)
{
    const auto bits = static_cast<std::uint32_t>(value);
    b1 = static_cast<std::uint8_t>(bits);
    b2 = static_cast<std::uint8_t>(bits >> 8);
    b3 = static_cast<std::uint8_t>(bits >> 16);
    b4 = static_cast<std::uint8_t>(bits >> 24);
}

inline void float2bytes(float value, std::uint8_t& b1, std::uint8_t& b2, std::uint8_t& b3,
                        std::uint8_t& b4)
{
    int2bytes(std::bit_cast<std::int32_t>(value), b1, b2, b3, b4);
}

inline void double2bytes(double value, std::uint8_t& b1, std::uint8_t& b2, std::uint8_t& b3,
                         std::uint8_t& b4, std::uint8_t& b5, std::uint8_t& b6, std::uint8_t& b7,
                         std::uint8_t& b8)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    int2bytes(static_cast<std::int32_t>(static_cast<std::uint32_t>(bits)), b1, b2, b3, b4);
    int2bytes(static_cast<std::int32_t>(static_cast<std::uint32_t>(bits >> 32)), b5, b6, b7, b8);
}

inline std::int16_t bytes2short(std::uint8_t b1, std::uint8_t b2)
{
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(b1 | (b2 << 8)));
}

inline std::int32_t bytes2long(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4)
{
    const std::uint32_t bits = std::uint32_t{b1} | (std::uint32_t{b2} << 8) |
                               (std::uint32_t{b3} << 16) | (std::uint32_t{b4} << 24);
    return static_cast<std::int32_t>(bits);
}

inline float bytes2float(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4)
{
    return std::bit_cast<float>(bytes2long(b1, b2, b3, b4));
}

inline double bytes2double(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3, std::uint8_t b4,
                           std::uint8_t b5, std::uint8_t b6, std::uint8_t b7, std::uint8_t b8)
{
    const auto low = static_cast<std::uint32_t>(bytes2long(b1, b2, b3, b4));
    const auto high = static_cast<std::uint32_t>(bytes2long(b5, b6, b7, b8));
    return std::bit_cast<double>(std::uint64_t{low} | (std::uint64_t{high} << 32));
}

} // namespace orbelan::numcvt
