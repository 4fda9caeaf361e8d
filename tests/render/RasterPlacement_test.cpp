#include "render/RasterPlacement.h"

#include "view/Viewport.h"

#include <gtest/gtest.h>

using orbelan::RasterPlacement;
using orbelan::Viewport;
using orbelan::WorldWindow;

namespace {

// A latitude/longitude view 400 x 200 pixels showing (-10, -5) to (10, 5):
// 20 pixels per degree, (0, 0) at pixel (200, 100).
Viewport view()
{
    Viewport shown;
    shown.setSize(400, 200);
    EXPECT_TRUE(shown.SetView(-10, -5, 10, 5));
    return shown;
}

void expectWindow(const WorldWindow& actual, const WorldWindow& expected)
{
    EXPECT_NEAR(actual.west, expected.west, 1e-9);
    EXPECT_NEAR(actual.south, expected.south, 1e-9);
    EXPECT_NEAR(actual.east, expected.east, 1e-9);
    EXPECT_NEAR(actual.north, expected.north, 1e-9);
}

TEST(RasterPlacement, AnImagePartlyAboveAndLeftIsPlacedFromPixelZeroWithItsVisiblePartOnly)
{
    const auto placed = RasterPlacement::place({-15, 0, -5, 8}, view());
    ASSERT_TRUE(placed);
    EXPECT_EQ(placed->screen, QRect(0, 0, 100, 100));
    expectWindow(placed->world, {-10, 0, -5, 5});
}

TEST(RasterPlacement, AnImageOverTheRightAndLowerEdgesStopsThereAndOneInsideStaysWhole)
{
    const auto cut = RasterPlacement::place({5, -20, 30, -2}, view());
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->screen, QRect(300, 140, 100, 60));
    expectWindow(cut->world, {5, -5, 10, -2});

    const auto whole = RasterPlacement::place({-1, -1, 1, 2}, view());
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->screen, QRect(180, 60, 40, 60));
    expectWindow(whole->world, {-1, -1, 1, 2});
}

TEST(RasterPlacement, NothingWhenTheImageLiesOutsideTheViewOrThereIsNoView)
{
    EXPECT_FALSE(RasterPlacement::place({11, -1, 20, 1}, view()));
    EXPECT_FALSE(RasterPlacement::place({-1, 6, 1, 9}, view()));
    EXPECT_FALSE(RasterPlacement::place({-1, -1, 1, 1}, Viewport()));
}

} // namespace
