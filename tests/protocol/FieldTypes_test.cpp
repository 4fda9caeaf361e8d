#include "protocol/FieldTypes.h"

#include <gtest/gtest.h>

using orbelan::WireType;
using orbelan::wireTypeOf;

namespace {

using Codes = std::initializer_list<std::int16_t>;

TEST(FieldTypes, EveryAdoCodeFallsInTheGroupItTravelsAs)
{
    for (const std::int16_t code : Codes{2, 16, 17, 18}) EXPECT_EQ(wireTypeOf(code), WireType::Integer) << code;
    for (const std::int16_t code : Codes{3, 19, 20, 21}) EXPECT_EQ(wireTypeOf(code), WireType::Long) << code;
    EXPECT_EQ(wireTypeOf(4), WireType::Single);
    for (const std::int16_t code : Codes{5, 14, 131}) EXPECT_EQ(wireTypeOf(code), WireType::Double) << code;
    for (const std::int16_t code : Codes{8, 129, 130, 200, 201, 202, 203}) {
        EXPECT_EQ(wireTypeOf(code), WireType::String) << code;
    }
    // Dates, booleans, binaries and nonsense carry no bytes.
    for (const std::int16_t code : Codes{0, 6, 7, 11, 72, 128, 133, 135, 204, -1}) {
        EXPECT_EQ(wireTypeOf(code), WireType::None) << code;
    }
}

} // namespace
