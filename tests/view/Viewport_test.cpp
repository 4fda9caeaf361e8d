#include "view/Viewport.h"

#include "projection/CUTM.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>

using orbelan::BoundingBox;
using orbelan::Viewport;

namespace {

Viewport sized(int width, int height, int projection = 0)
{
    Viewport view;
    view.setSize(width, height);
    view.setProjection(projection);
    return view;
}

void expectBox(const BoundingBox& box, double west, double south, double east, double north, double tolerance)
{
    EXPECT_NEAR(box.MinX, west, tolerance);
    EXPECT_NEAR(box.MinY, south, tolerance);
    EXPECT_NEAR(box.MaxX, east, tolerance);
    EXPECT_NEAR(box.MaxY, north, tolerance);
}

TEST(ViewportLatLon, TheRequestedBoxFillsTheControl)
{
    Viewport view = sized(400, 200);
    ASSERT_TRUE(view.SetView(10, 5, -10, -5));
    EXPECT_EQ(view.scale(), 20.0f);
    EXPECT_EQ(std::tuple(view.centre().x, view.centre().y), std::tuple(0, 0));
    expectBox(view.viewBox(), -10, -5, 10, 5, 1e-12);
    EXPECT_EQ(std::tuple(view.WorldToScreenX(-10), view.WorldToScreenY(-5)), std::tuple(0, 200));
    EXPECT_EQ(std::tuple(view.ScreenToWorldX(300), view.ScreenToWorldY(50)), std::tuple(5, 2.5));
}

TEST(ViewportLatLon, ResizingKeepsCentreAndScale)
{
    Viewport view = sized(400, 200);
    ASSERT_TRUE(view.SetView(-10, -5, 10, 5));
    ASSERT_TRUE(view.resize(600, 300));
    EXPECT_NEAR(view.centre().x, 0, 1e-12);
    EXPECT_NEAR(view.centre().y, 0, 1e-12);
    EXPECT_EQ(view.scale(), 20.0f);
    expectBox(view.viewBox(), -15, -7.5, 15, 7.5, 1e-12);
}

// Without a view conversions say so; boxes without extent or projection,
// or a control without size, change nothing.
TEST(ViewportWithoutView, ConversionsSayThereIsNoViewAndBoxesWithoutExtentChangeNothing)
{
    Viewport view = sized(400, 200);
    EXPECT_FALSE(view.viewReady());
    EXPECT_EQ(std::tuple(view.ScreenToWorldX(10), view.ScreenToWorldY(10)), std::tuple(1e37, 1e37));
    EXPECT_FALSE(view.resize(500, 300));
    EXPECT_FALSE(view.zoomAbout(2, {}));
    EXPECT_FALSE(view.moveByShares(0.25, 0));
    view.setSize(400, 200);
    EXPECT_FALSE(view.SetView(3, 4, 3, 4));
    EXPECT_FALSE(view.viewReady());
    EXPECT_FALSE(view.SetView(std::nan(""), 0, 1, 1));

    Viewport unknown = sized(400, 200, 7);
    EXPECT_FALSE(unknown.SetView(-1, -1, 1, 1));

    Viewport unsized = sized(0, 0);
    EXPECT_FALSE(unsized.SetView(-1, -1, 1, 1));
}

TEST(ViewportUtm, TheViewIsCentredOnTheProjectedCentreOfTheBox)
{
    // Code 81: zone 19 south, where Santiago lies.
    Viewport view = sized(500, 500, 81);
    ASSERT_TRUE(view.SetView(-70.8, -33.6, -70.5, -33.3));
    orbelan::CUTM utm;
    const double params[] = {-19, 0.9996};
    ASSERT_TRUE(utm.Init(6378137.0, 6356752.3142, params));
    double x = 0, y = 0;
    ASSERT_TRUE(utm.Project(-70.65, -33.45, x, y));
    EXPECT_NEAR(view.centre().x, x, 1e-6);
    EXPECT_NEAR(view.centre().y, y, 1e-6);
    // 0.3 degrees of latitude are about 33.3 km; the screen's corners reach a
    // little further across the grid's convergence 1.65 degrees off the meridian.
    EXPECT_GT(view.CurrentZoom(), 33.2f);
    EXPECT_LT(view.CurrentZoom(), 34.5f);
    double lon = 0, lat = 0;
    ASSERT_TRUE(view.screenToGeographic(250, 250, lon, lat));
    EXPECT_NEAR(lon, -70.65, 1e-9);
    EXPECT_NEAR(lat, -33.45, 1e-9);
}

TEST(ViewportAlbers, TheBoxCentreIsTheProjectionsOrigin)
{
    Viewport view = sized(800, 600, 1);
    ASSERT_TRUE(view.SetView(-125, 24, -66, 50));
    EXPECT_NEAR(view.centre().x, 5000000, 1e-6);
    EXPECT_NEAR(view.centre().y, 5000000, 1e-6);
    // Curved parallels: the middle of the top edge reaches further north
    // than its corners, and the box holds it.
    double cornerLon = 0;
    double cornerLat = 0;
    double middleLon = 0;
    double middleLat = 0;
    ASSERT_TRUE(view.screenToGeographic(0, 0, cornerLon, cornerLat));
    ASSERT_TRUE(view.screenToGeographic(400, 0, middleLon, middleLat));
    EXPECT_GT(middleLat, cornerLat + 1);
    EXPECT_DOUBLE_EQ(view.viewBox().MaxY, middleLat);
    EXPECT_GT(view.viewBox().MaxY, 50);
    EXPECT_LE(view.viewBox().MinX, -125);
    EXPECT_GE(view.viewBox().MaxX, -66);
}

// Zooming and moving work in the projected plane, so that every step can be
// undone exactly, whatever the projection does to a box of degrees.
struct Navigation {
    const char* map;
    int projection;
    double west, south, east, north;
};

class ViewportRoundTrips : public testing::TestWithParam<Navigation> {
protected:
    void SetUp() override
    {
        const Navigation& map = GetParam();
        view = sized(640, 480, map.projection);
        ASSERT_TRUE(view.SetView(map.west, map.south, map.east, map.north));
        centre = view.centre();
        scale = view.scale();
    }

    void expectBackWhereItStarted() const
    {
        EXPECT_NEAR(view.centre().x, centre.x, 1e-9 * std::max(1.0, std::abs(centre.x)));
        EXPECT_NEAR(view.centre().y, centre.y, 1e-9 * std::max(1.0, std::abs(centre.y)));
        EXPECT_NEAR(view.scale(), scale, 1e-9 * scale);
    }

    Viewport view;
    orbelan::MapPoint centre;
    float scale = 0;
};

TEST_P(ViewportRoundTrips, ZoomingInAndOutAgainReturnsToTheSameView)
{
    ASSERT_TRUE(view.zoomAbout(2, view.toMap(320, 240)));
    ASSERT_TRUE(view.zoomAbout(0.5f, view.toMap(320, 240)));
    expectBackWhereItStarted();
    ASSERT_TRUE(view.zoomAboutPixel(2, 100, 400));
    ASSERT_TRUE(view.zoomAboutPixel(0.5f, 100, 400));
    expectBackWhereItStarted();
}

TEST_P(ViewportRoundTrips, MovingAndMovingBackReturnsToTheSameViewAtTheSameScale)
{
    ASSERT_TRUE(view.drag(view.toMap(200, 200), view.toMap(400, 260)));
    EXPECT_EQ(view.scale(), scale);
    ASSERT_TRUE(view.drag(view.toMap(400, 260), view.toMap(200, 200)));
    expectBackWhereItStarted();
    ASSERT_TRUE(view.moveByShares(0.25, -0.25));
    EXPECT_EQ(view.scale(), scale);
    ASSERT_TRUE(view.moveByShares(-0.25, 0.25));
    expectBackWhereItStarted();
    ASSERT_TRUE(view.resize(800, 600));
    expectBackWhereItStarted();
}

INSTANTIATE_TEST_SUITE_P(Projections, ViewportRoundTrips,
                         testing::Values(Navigation{"World", 0, -180, -90, 180, 90},
                                         Navigation{"Santiago", 81, -70.8, -33.6, -70.5, -33.3},
                                         Navigation{"UnitedStates", 1, -125, 24, -66, 50}),
                         [](const auto& test) { return std::string(test.param.map); });

TEST(ViewportLatLon, BoxesAreClampedNotWrappedAndAViewMovedOffTheGlobeStopsAtItsEdge)
{
    Viewport clamped = sized(360, 180);
    ASSERT_TRUE(clamped.SetView(170, -100, 200, 100));
    expectBox(clamped.projectedViewBox(), 170, -90, 180, 90, 0);

    Viewport view = sized(400, 200);
    ASSERT_TRUE(view.SetView(170, -5, 180, 5));
    ASSERT_TRUE(view.moveByShares(3, 0));
    EXPECT_EQ(view.centre().x, 180);
    EXPECT_FALSE(view.zoomAbout(1e38f, view.centre()));
}

} // namespace
