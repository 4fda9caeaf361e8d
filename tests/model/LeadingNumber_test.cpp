#include "model/LeadingNumber.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>
#include <utility>

using orbelan::Val;

namespace {

// Too large is infinite, too small 0.
TEST(Val, ReadsTheLeadingNumberIgnoringBlanks)
{
    const std::pair<std::string_view, double> rows[] = {
        {"12.5abc", 12.5}, {"-3e2", -300}, {"1D2", 100},  {"+7", 7},    {"-.5", -0.5}, {"1,5", 1},
        {"1e+", 1},        {"0x10", 0},    {"1 000", 1000}, {"\t- 2\n5", -25}, {"\r5", 0}, {"", 0},
        {".", 0},          {"--5", 0},     {"MICanyMIC", 0}, {"1e999", std::numeric_limits<double>::infinity()},
        {"-0.001e99999999999999999999", -std::numeric_limits<double>::infinity()}, {"1000e-400", 0},
        {"1e-99999999999999999999", 0},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(Val(text), expected) << text;
    }
}

} // namespace
