#include "LeadingNumber.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

using orbelan::Val;

namespace {

struct Row {
    std::string_view text;
    double expected;
};

TEST(Val, ReadsTheLeadingNumber)
{
    const Row rows[] = {
        {"10", 10},        {"12.5abc", 12.5}, {"-3e2", -300},  {"1D2", 100},   {"2.5E-1", 0.25},
        {"+7", 7},         {".5", 0.5},       {"-.5", -0.5},   {"1.", 1},      {"1,5", 1},
        {"1e", 1},         {"1e+", 1},        {"7-", 7},       {"0x10", 0},    {"3 . 5", 3.5},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Val(row.text), row.expected) << row.text;
    }
}

TEST(Val, IgnoresBlanksTabsAndLineFeedsAnywhere)
{
    EXPECT_EQ(Val("  42"), 42);
    EXPECT_EQ(Val("1 000"), 1000);
    EXPECT_EQ(Val("\t- 2\n5"), -25);
    EXPECT_EQ(Val("\r5"), 0);
}

TEST(Val, TextThatIsNoNumberIsZero)
{
    for (std::string_view text : {"", "abc", ".", "-", "--5", "e5", "MICanyMIC"}) {
        EXPECT_EQ(Val(text), 0) << text;
    }
}

TEST(Val, OutOfRangeSaturates)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Val("1e999"), infinity);
    EXPECT_EQ(Val("-1e999"), -infinity);
    EXPECT_EQ(Val("0.001e99999999999999999999"), infinity);
    EXPECT_EQ(Val("1e-999"), 0);
    EXPECT_EQ(Val("1000e-400"), 0);
    EXPECT_EQ(Val("-1e-99999999999999999999"), 0);
}

} // namespace
