#include "render/DirectionMark.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using orbelan::DirectionMark;
using orbelan::ScreenPoint;

namespace {

void expectPoint(const QPointF& point, double x, double y)
{
    EXPECT_NEAR(point.x(), x, 1e-9);
    EXPECT_NEAR(point.y(), y, 1e-9);
}

TEST(DirectionMark, PointsAlongTheSegmentFromItsMiddle)
{
    const auto right = DirectionMark::of({20, 50}, {80, 50}, 1, 30);
    ASSERT_TRUE(right);
    expectPoint(right->tip, 80, 50);
    expectPoint(right->base1, 50, 42.5);
    expectPoint(right->base2, 50, 57.5);

    const auto left = DirectionMark::of({80, 50}, {20, 50}, 2, 30);
    ASSERT_TRUE(left);
    expectPoint(left->tip, 20, 50);

    // Up the screen is up the map; a diagonal keeps its angle.
    expectPoint(DirectionMark::of({50, 80}, {50, 20}, 1, 30)->tip, 50, 20);
    expectPoint(DirectionMark::of({50, 20}, {50, 80}, 1, 30)->tip, 50, 80);
    const double step = 30 / std::sqrt(2.0);
    expectPoint(DirectionMark::of({0, 0}, {30, 30}, 1, 30)->tip, 15 + step, 15 + step);
}

TEST(DirectionMark, MinusOneReversesAndZeroDrawsNothing)
{
    expectPoint(DirectionMark::of({20, 50}, {80, 50}, -1, 30)->tip, 20, 50);
    expectPoint(DirectionMark::of({50, 20}, {50, 80}, -1, 30)->tip, 50, 20);
    EXPECT_FALSE(DirectionMark::of({50, 50}, {50, 50}, 1, 1e-9));
    EXPECT_FALSE(DirectionMark::of({20, 50}, {80, 50}, 0, 30));
    EXPECT_FALSE(DirectionMark::of({std::numeric_limits<float>::quiet_NaN(), 50}, {80, 50}, 1, 30));
}

} // namespace
