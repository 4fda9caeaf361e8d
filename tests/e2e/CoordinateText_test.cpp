#include "orbelan-viewer/CoordinateText.h"

#include <gtest/gtest.h>

using namespace orbelan::coordinatetext;

namespace {

TEST(CoordinateText, PositionsAndScalesReadAsAMapReaderWritesThem)
{
    EXPECT_EQ(geographic(-70.655148, -33.459604), QString::fromUtf8("33.45960° S 70.65515° W"));
    EXPECT_EQ(geographic(151.2093, 40.7), QString::fromUtf8("40.70000° N 151.20930° E"));
    EXPECT_EQ(geographic(0, 0), QString::fromUtf8("0.00000° N 0.00000° E"));
    EXPECT_EQ(plane(346512.34, 6296102.06), QStringLiteral("X 346,512.3  Y 6,296,102.1"));
    EXPECT_EQ(plane(-1500.25, 12), QStringLiteral("X -1,500.3  Y 12.0"));
    EXPECT_EQ(scale(24999.6), QStringLiteral("1:25,000"));
    EXPECT_EQ(scale(1000000), QStringLiteral("1:1,000,000"));
    EXPECT_EQ(scale(500), QStringLiteral("1:500"));
}

} // namespace
