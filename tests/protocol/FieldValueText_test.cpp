#include "protocol/FieldValueText.h"

#include <gtest/gtest.h>

using namespace orbelan;

namespace {

TEST(FieldValueText, NumbersReadAsAUserWritesThem)
{
    EXPECT_EQ(numberText(42, WireType::Long), "42");
    EXPECT_EQ(numberText(-3, WireType::Integer), "-3");
    EXPECT_EQ(numberText(2.5, WireType::Double), "2.5");
    EXPECT_EQ(numberText(0.1 + 0.2, WireType::Double), "0.3");
    EXPECT_EQ(numberText(0.1f, WireType::Single), "0.1");
    EXPECT_EQ(numberText(1e300, WireType::Single), "1e+300");
}

TEST(FieldValueText, OnlyWholeNumbersParse)
{
    EXPECT_EQ(parseNumber(" 12.5 "), 12.5);
    EXPECT_EQ(parseNumber("+3"), 3.0);
    for (const char* text : {"", " ", "12a", "1,5", "inf", "nan", "--1"}) {
        EXPECT_FALSE(parseNumber(text)) << text;
    }
}

TEST(FieldValueText, IntegersRoundHalfToEvenWithinTheirRange)
{
    EXPECT_EQ(storedNumber("2.5", WireType::Integer), 2.0);
    EXPECT_EQ(storedNumber("3.5", WireType::Long), 4.0);
    EXPECT_EQ(numberText(*storedNumber("-0.4", WireType::Long), WireType::Long), "0");
    EXPECT_EQ(storedNumber("32767", WireType::Integer), 32767.0);
    EXPECT_FALSE(storedNumber("32768", WireType::Integer));
    EXPECT_FALSE(storedNumber("2147483648", WireType::Long));
    EXPECT_FALSE(storedNumber("1e39", WireType::Single));
}

TEST(FieldValueText, OnlyTextsANumberFieldWouldKeepSurviveTheRoundTrip)
{
    EXPECT_TRUE(keepsTextThroughNumberType("15", 3));
    EXPECT_FALSE(keepsTextThroughNumberType("1.50", 3));
    EXPECT_FALSE(keepsTextThroughNumberType("40000", 2));
    EXPECT_TRUE(keepsTextThroughNumberType("1.5", 5));
    EXPECT_FALSE(keepsTextThroughNumberType("1.50", 5));
    EXPECT_FALSE(keepsTextThroughNumberType("", 4));
    EXPECT_TRUE(keepsTextThroughNumberType("anything", 202));
    EXPECT_TRUE(keepsTextThroughNumberType("anything", 7));
}

} // namespace
