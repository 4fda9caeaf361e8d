#include "render/RasterPlacement.h"

#include "view/Viewport.h"

#include <gtest/gtest.h>

#include <tuple>

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

// Images partly above and left, over the right and lower edges, and inside:
// each is placed on its visible part only.
TEST(RasterPlacement, AnImageIsPlacedOnItsVisiblePartOnly)
{
    const std::tuple<WorldWindow, QRect, WorldWindow> cases[] = {
        {{-15, 0, -5, 8}, QRect(0, 0, 100, 100), {-10, 0, -5, 5}},
        {{5, -20, 30, -2}, QRect(300, 140, 100, 60), {5, -5, 10, -2}},
        {{-1, -1, 1, 2}, QRect(180, 60, 40, 60), {-1, -1, 1, 2}},
    };
    for (const auto& [extent, screen, world] : cases) {
        const auto placed = RasterPlacement::place(extent, view());
        ASSERT_TRUE(placed) << extent.west;
        EXPECT_EQ(placed->screen, screen);
        expectWindow(placed->world, world);
    }
}

TEST(RasterPlacement, NothingWhenTheImageLiesOutsideTheViewOrThereIsNoView)
{
    EXPECT_FALSE(RasterPlacement::place({11, -1, 20, 1}, view()));
    EXPECT_FALSE(RasterPlacement::place({-1, 6, 1, 9}, view()));
    EXPECT_FALSE(RasterPlacement::place({-1, -1, 1, 1}, Viewport()));
}

} // namespace
