#include "projection/CAlbers.h"
#include "projection/CLatLon.h"
#include "projection/CUTM.h"
#include "projection/ProjectionFactory.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>

namespace orbelan {
namespace {

// The distance from the projection of (lon, lat) to (x, y).
double offBy(const std::unique_ptr<CProjection>& projection, double lon, double lat, double x, double y)
{
    double px = NAN, py = NAN;
    EXPECT_TRUE(projection && projection->Project(lon, lat, px, py)) << lon << ", " << lat;
    return std::hypot(px - x, py - y);
}

TEST(InitProjection, TheCodeChoosesTheProjection)
{
    std::unique_ptr<CProjection> projection;
    InitProjection(projection, 2, -80, -40, -60, -20);
    EXPECT_EQ(projection, nullptr) << "no projection for code 2";
    InitProjection(projection, 0, -80, -40, -60, -20);
    ASSERT_TRUE(dynamic_cast<CLatLon*>(projection.get()));
    EXPECT_EQ(offBy(projection, -70.5, -33.4, -70.5, -33.4), 0.0);
    // Albers with its origin at the box's centre.
    InitProjection(projection, 1, -80, -40, -60, -20);
    ASSERT_TRUE(dynamic_cast<CAlbers*>(projection.get()));
    EXPECT_LT(offBy(projection, -70.0, -30.0, 5E6, 5E6), 1E-6);
    // Zone 19's central meridian, -69°, meets the equator at (500000, 0) in
    // the north (code 119) and at (500000, 10000000) in the south (code 81).
    InitProjection(projection, 119, -80, -40, -60, -20);
    ASSERT_TRUE(dynamic_cast<CUTM*>(projection.get()));
    EXPECT_LT(offBy(projection, -69.0, 0.0, 500000.0, 0.0), 0.002);
    InitProjection(projection, 81, -80, -40, -60, -20);
    EXPECT_LT(offBy(projection, -69.0, 0.0, 500000.0, 1E7), 0.002);

    // Other codes, and 100 (zone 0, which UTM refuses), leave zone 19 south.
    const CProjection* const utm = projection.get();
    for (const int code : {-1, 2, 39, 100, 161, 32767}) {
        InitProjection(projection, code, -80, -40, -60, -20);
        EXPECT_EQ(projection.get(), utm) << code;
        EXPECT_LT(offBy(projection, -69.0, 0.0, 500000.0, 1E7), 0.002) << code;
    }
}

TEST(InitProjection, AlbersFollowsTheViewBox)
{
    std::unique_ptr<CProjection> clamped, beyond, other;
    InitProjection(clamped, 1, -180, 20, 10, 90);
    InitProjection(beyond, 1, 10, 95, -200, 20);
    InitProjection(other, 1, -40, 40, -20, 60);
    double x = 0.0, y = 0.0;
    ASSERT_TRUE(clamped->Project(-30.0, 50.0, x, y));
    EXPECT_EQ(offBy(beyond, -30.0, 50.0, x, y), 0.0) << "corners clamped to ±180° and ±90°, in any order";
    EXPECT_GT(offBy(other, -30.0, 50.0, x, y), 1000.0) << "other parallels and origin";
}

} // namespace
} // namespace orbelan
