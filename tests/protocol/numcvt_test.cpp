#include "protocol/numcvt.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace orbelan::numcvt;

namespace {

// The byte order itself is pinned by the golden message of the buffer test.
TEST(Numcvt, EveryIntegerSurvivesTheRoundTrip)
{
    for (int value = std::numeric_limits<std::int16_t>::min();
         value <= std::numeric_limits<std::int16_t>::max(); ++value) {
        std::uint8_t b1, b2;
        short2bytes(static_cast<std::int16_t>(value), b1, b2);
        ASSERT_EQ(bytes2short(b1, b2), value);
    }
}

TEST(Numcvt, LongAndFloatBitPatternsSurviveTheRoundTrip)
{
    std::mt19937 random(7);
    std::vector<std::uint32_t> patterns = {0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF,
                                           0x7F800001, 0xFFC00123, 0x80000000, 0x00000001};
    for (int i = 0; i < 100000; ++i) {
        patterns.push_back(static_cast<std::uint32_t>(random()));
    }
    for (const std::uint32_t bits : patterns) {
        std::uint8_t b[4];
        int2bytes(static_cast<std::int32_t>(bits), b[0], b[1], b[2], b[3]);
        ASSERT_EQ(static_cast<std::uint32_t>(bytes2long(b[0], b[1], b[2], b[3])), bits);

        float2bytes(std::bit_cast<float>(bits), b[0], b[1], b[2], b[3]);
        ASSERT_EQ(std::bit_cast<std::uint32_t>(bytes2float(b[0], b[1], b[2], b[3])), bits);
    }
}

TEST(Numcvt, DoubleBitPatternsSurviveTheRoundTrip)
{
    std::mt19937_64 random(11);
    std::vector<std::uint64_t> patterns = {
        0, 0x8000000000000000,                  // +0 and -0
        0x7FF0000000000000, 0xFFF0000000000000, // infinities
        0x7FF0000000000001, 0x7FF8DEADBEEF0001, // signalling and quiet NaN with payloads
        0xFFFFFFFFFFFFFFFF, 0x0000000000000001, // negative NaN, smallest subnormal
    };
    for (int i = 0; i < 100000; ++i) {
        patterns.push_back(random());
    }
    for (const std::uint64_t bits : patterns) {
        std::uint8_t b[8];
        double2bytes(std::bit_cast<double>(bits), b[0], b[1], b[2], b[3], b[4], b[5], b[6], b[7]);
        const double back = bytes2double(b[0], b[1], b[2], b[3], b[4], b[5], b[6], b[7]);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), bits);
    }
}

} // namespace
