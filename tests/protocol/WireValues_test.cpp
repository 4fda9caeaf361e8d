#include "protocol/WireValues.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using namespace orbelan::wirevalues;

namespace {

TEST(Wsckfunciones, ValuesAreReadFromAnyStartingIndex)
{
    std::vector<std::uint8_t> bytes = {0xAA};
    for (const auto b : LongToBytes(-123456)) bytes.push_back(b);
    for (const auto b : DoubleToBytes(-69.25)) bytes.push_back(b);
    for (const auto b : IntegerToBytes(-2)) bytes.push_back(b);
    for (const auto b : SingleToBytes(0.5f)) bytes.push_back(b);

    EXPECT_EQ(BytesToLong(bytes, 1), -123456);
    EXPECT_EQ(BytesToDouble(bytes, 5), -69.25);
    EXPECT_EQ(BytesToInteger(bytes, 13), -2);
    EXPECT_EQ(BytesToSingle(bytes, 15), 0.5f);
}

TEST(Wsckfunciones, AValueThatRunsPastTheEndIsAnError)
{
    const std::vector<std::uint8_t> bytes = {1, 2, 3, 4, 5, 6, 7};
    EXPECT_THROW(BytesToDouble(bytes, 0), std::out_of_range);
    EXPECT_THROW(BytesToLong(bytes, 4), std::out_of_range);
    EXPECT_THROW(BytesToInteger(bytes, 6), std::out_of_range);
    EXPECT_THROW(BytesToInteger(bytes, 100), std::out_of_range);
    EXPECT_THROW(BytesToString(bytes, 8), std::out_of_range);
    EXPECT_EQ(BytesToLong(bytes, 3), 0x07060504);
}

TEST(Wsckfunciones, StringsAreOneWindows1252BytePerCharacter)
{
    EXPECT_EQ(StringToBytes("Año"), "A\xF1o");
    EXPECT_TRUE(StringToBytes("").empty());
    const std::vector<std::uint8_t> bytes = {'C', 0xE9, 'l', 'u', 'l', 'a', '!'};
    EXPECT_EQ(BytesToString(bytes, 6), "Célula");
    EXPECT_EQ(BytesToString(bytes, 0), "");
}

} // namespace
