#include "viewer/SmartEndPoint.h"

#include <gtest/gtest.h>

using namespace orbelan;

namespace {

struct Case {
    const char* what;
    MapPoint reference;
    double longitudinal;
    double transversal;
    MapPoint expected;
};

// A segment from B (0, 0) towards A (10, 0).
TEST(SmartEndPointCompute, MeasuresFromTheFirstVertexOnTheSideOfTheReference)
{
    const Case cases[] = {
        {"no distances give B", {7, 7}, 0, 0, {0, 0}},
        {"along, towards A", {8, 1}, 4, 0, {4, 0}},
        {"along, away from A", {-8, 1}, 4, 0, {-4, 0}},
        {"across, on the left", {3, 5}, 3, 2, {3, 2}},
        {"across, on the right, behind", {-3, -5}, 3, 2, {-3, -2}},
    };
    for (const Case& c : cases) {
        const auto point = SmartEndPointCompute({10, 0}, {0, 0}, c.reference, c.longitudinal, c.transversal);
        ASSERT_TRUE(point) << c.what;
        EXPECT_NEAR(point->x, c.expected.x, 1e-12) << c.what;
        EXPECT_NEAR(point->y, c.expected.y, 1e-12) << c.what;
    }
    EXPECT_FALSE(SmartEndPointCompute({1, 1}, {1, 1}, {0, 0}, 1, 1));
}

} // namespace
