#include "projection/CAlbers.h"
#include "ProjOracle.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

namespace orbelan {
namespace {

using namespace test;

// A map extent: west, south, east, north.
using Box = std::array<double, 4>;

// As a code-1 map sets it up: parallels at the box's edges, origin at its centre.
std::array<double, 6> parametersOf(const Box& box)
{
    return {box[1], box[3], (box[0] + box[2]) / 2, (box[1] + box[3]) / 2, 5E6, 5E6};
}

CAlbers albersFor(const std::array<double, 6>& params)
{
    CAlbers albers;
    EXPECT_TRUE(albers.Init(kMajor, kMinor, params));
    return albers;
}

std::string aea(const std::array<double, 6>& p)
{
    const auto angle = [](double degrees) { return ProjOracle::Angle(degrees); };
    return "+proj=aea +lat_1=" + angle(p[0]) + " +lat_2=" + angle(p[1]) + " +lon_0=" + angle(p[2])
         + " +lat_0=" + angle(p[3]) + " +x_0=5000000 +y_0=5000000 +ellps=WGS84";
}

// The largest forward (plane) and inverse (ground) differences from the
// reference over a 25 x 25 grid of the box, in metres; every round trip
// comes back within 1E-7°.
std::array<double, 2> compare(const CAlbers& albers, const ProjOracle& reference, const Box& box)
{
    std::array<double, 2> largest{};
    for (int i = 0; i <= 24; ++i) {
        for (int j = 0; j <= 24; ++j) {
            const double lon = box[0] + (box[2] - box[0]) * i / 24;
            const double lat = box[1] + (box[3] - box[1]) * j / 24;
            const auto [px, py] = reference.forward(lon, lat);
            double x = 0.0, y = 0.0, fromProj[2] = {}, back[2] = {};
            EXPECT_TRUE(albers.Project(lon, lat, x, y) && albers.Unproject(px, py, fromProj[0], fromProj[1])
                        && albers.Unproject(x, y, back[0], back[1]));
            largest[0] = std::max(largest[0], std::hypot(x - px, y - py));
            largest[1] = std::max(largest[1], GroundDistance(fromProj[0], fromProj[1], lon, lat));
            EXPECT_NEAR(back[0], lon, 1E-7) << lon << ", " << lat;
            EXPECT_NEAR(back[1], lat, 1E-7) << lon << ", " << lat;
        }
    }
    return largest;
}

TEST(CAlbers, AgreesWithProjOverMapExtents)
{
    const std::pair<const char*, Box> extents[] = {
        {"Spain", {-9.5, 35.9, 3.4, 43.8}},
        {"Chile", {-76.0, -56.0, -66.0, -17.5}},
        {"South America", {-82.0, -56.0, -34.0, 13.0}},
        {"Europe", {-25.0, 34.0, 45.0, 72.0}},
    };
    for (const auto& [name, box] : extents) {
        const auto params = parametersOf(box);
        const CAlbers albers = albersFor(params);
        const auto same = compare(albers, ProjOracle(aea(params)), box);
        EXPECT_LT(same[0], 0.001) << name;
        EXPECT_LT(same[1], 0.001) << name;

        double x = 0.0, y = 0.0;
        ASSERT_TRUE(albers.Project(params[2], params[3], x, y));
        EXPECT_LT(std::hypot(x - 5E6, y - 5E6), 1E-6) << name << ": the origin is the false origin";
    }
    // Equal parallels make a tangent cone.
    const std::array<double, 6> tangent = {40, 40, -3, 40, 5E6, 5E6};
    const auto largest = compare(albersFor(tangent), ProjOracle(aea(tangent)), {-9.5, 35.9, 3.4, 43.8});
    EXPECT_LT(std::max(largest[0], largest[1]), 0.001);
}

// Source: PROJ test/gie/builtins.gie, "Albers Equal Area", +R=6400000
// +lat_1=0 +lat_2=2, published to 0.1 mm: equal axes take the spherical q.
TEST(CAlbers, ProjectsPublishedPointsOnASphere)
{
    CAlbers albers;
    ASSERT_TRUE(albers.Init(6400000.0, 6400000.0, std::array{0.0, 2.0, 0.0, 0.0, 0.0, 0.0}));
    for (const auto& [lon, lat, x, y] : {std::array{2.0, 1.0, 223334.085170885, 111780.431884472},
                                         {-2.0, -1.0, -223470.154991687, -111610.339430990}}) {
        std::array<double, 2> xy{};
        ASSERT_TRUE(albers.Project(lon, lat, xy[0], xy[1]));
        EXPECT_LT(std::hypot(xy[0] - x, xy[1] - y), 1E-4) << lon << ", " << lat;
    }
    double lon = 0.0, lat = 0.0;
    ASSERT_TRUE(albers.Unproject(200, 100, lon, lat));
    EXPECT_LT(GroundDistance(lon, lat, 0.001790494, 0.000895246), 2E-4);
}

// Parallels symmetric about the equator give the cone's limit, the
// cylindrical equal-area projection true to scale on those parallels.
TEST(CAlbers, SymmetricParallelsGiveTheCylindricalEqualArea)
{
    const Box tropics = {-60.0, -20.0, 20.0, 20.0};
    const ProjOracle cea("+proj=cea +lat_ts=" + ProjOracle::Angle(20) + " +lon_0=" + ProjOracle::Angle(-20)
                         + " +x_0=5000000 +y_0=5000000 +ellps=WGS84");
    const CAlbers cylinder = albersFor(parametersOf(tropics));
    const auto largest = compare(cylinder, cea, tropics);
    EXPECT_LT(std::max(largest[0], largest[1]), 0.001);

    // Parallels 0.0002° from symmetric make a cone a few metres from it over
    // 4000 km: no seam where the one takes over from the other.
    const CAlbers cone = albersFor({-20, 20.0002, -20, 0, 5E6, 5E6});
    for (const auto& [lon, lat] : {std::array{-60.0, -20.0}, {20.0, 20.0}, {-20.0, 10.0}}) {
        double x = 0.0, y = 0.0, coneX = 0.0, coneY = 0.0;
        ASSERT_TRUE(cylinder.Project(lon, lat, x, y) && cone.Project(lon, lat, coneX, coneY));
        EXPECT_LT(std::hypot(x - coneX, y - coneY), 10.0) << lon << ", " << lat;
    }

    // The whole globe puts the parallels on the poles, where the cylinder (as
    // the nearby cones) shrinks every parallel to almost nothing; the points
    // stay finite and their latitudes come back.
    const CAlbers globe = albersFor(parametersOf({-180, -90, 180, 90}));
    double x = 0.0, y = 0.0, lon = 0.0, lat = 0.0;
    ASSERT_TRUE(globe.Project(100.0, 45.0, x, y) && globe.Unproject(x, y, lon, lat));
    EXPECT_NEAR(lat, 45.0, 1E-7);
}

TEST(CAlbers, BadInputChangesNothing)
{
    const auto spain = parametersOf({-9.5, 35.9, 3.4, 43.8});
    CAlbers albers = albersFor(spain);
    for (const auto& params : {std::array{kNaN, 40.0, 0.0, 40.0, 5E6, 5E6}, {30.0, 91.0, 0.0, 40.0, 5E6, 5E6},
                               {30.0, 40.0, 0.0, -90.5, 5E6, 5E6}, {30.0, 40.0, HUGE_VAL, 40.0, 5E6, 5E6}}) {
        EXPECT_FALSE(albers.Init(kMajor, kMinor, params)) << params[0] << " " << params[1] << " " << params[3];
    }
    EXPECT_FALSE(albers.Init(kMajor, kMinor, std::array{30.0, 40.0, 0.0, 40.0, 5E6}));
    EXPECT_FALSE(albers.Init(kMinor, kMajor, spain));
    double x = 7.0, y = 8.0;
    EXPECT_FALSE(albers.Project(kNaN, 40.0, x, y) || albers.Project(0.0, 90.5, x, y)
                 || albers.Unproject(5E6, kNaN, x, y) || CAlbers().Project(0.0, 40.0, x, y));
    // The north pole is an arc around the cone's apex; nearer the apex there
    // is no latitude.
    double poleX = 0.0, poleY = 0.0;
    ASSERT_TRUE(albers.Project(spain[2], 90.0, poleX, poleY));
    EXPECT_FALSE(albers.Unproject(poleX, poleY + 1000.0, x, y));
    EXPECT_EQ((std::array{x, y}), (std::array{7.0, 8.0}));
    ASSERT_TRUE(albers.Unproject(poleX, poleY, x, y));
    EXPECT_NEAR(y, 90.0, 1E-6);
    ASSERT_TRUE(albers.Project(spain[2], spain[3], x, y));
    EXPECT_LT(std::hypot(x - 5E6, y - 5E6), 1E-6) << "still the map of Spain";
}

} // namespace
} // namespace orbelan
