#include "projection/CUTM.h"
#include "ProjOracle.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace orbelan {
namespace {

using namespace test;

CUTM utmZone(double zone, double minor = kMinor)
{
    CUTM utm;
    EXPECT_TRUE(utm.Init(kMajor, minor, std::array{zone, 0.9996}));
    return utm;
}

// Longitudes of the zone's grid. The antimeridian is left out: its radians
// lie just past ±π and the inverse folds them back by the package's 2π, in
// our degrees 360° - 4.7E-8°, so such points come back 5 mm beside.
std::vector<double> longitudes(int zone, double reach, double step)
{
    std::vector<double> lons;
    for (double offset = -reach; offset <= reach; offset += step) {
        if (std::abs(6.0 * std::abs(zone) - 183.0 + offset) < 180.0) {
            lons.push_back(6.0 * std::abs(zone) - 183.0 + offset);
        }
    }
    return lons;
}

TEST(CUTM, ProjectsPublishedPoints)
{
    // zone, minor axis, accept lon lat, expect x y; within 2 mm, the shift of
    // our degree factor, and 5 mm more a turn away. Sources: UTM's false
    // origin; PROJ 9.1.1 +proj=utm +zone=19 +south +ellps=WGS84; PROJ
    // test/gie/builtins.gie, "Universal Transverse Mercator" (GRS80).
    const std::array<double, 6> rows[] = {
        {19, kMinor, -69, 0, 500000, 0},
        {-19, kMinor, -69, -33, 500000, 6348713.056040},
        {-19, kMinor, -69 + 360, -33, 500000, 6348713.056040},
        {32, 6356752.314140356, 12, 56, 687071.43910944, 6210141.32674801},
    };
    for (const auto& [zone, minor, lon, lat, x, y] : rows) {
        double px = 0.0, py = 0.0;
        ASSERT_TRUE(utmZone(zone, minor).Project(lon, lat, px, py));
        EXPECT_LT(std::hypot(px - x, py - y), lon > 180 ? 0.006 : 0.002) << zone << ": " << lon << ", " << lat;
    }
}

// PROJ's exact Transverse Mercator in every zone of both hemispheres: every
// point up to 10° from the central meridian goes both ways, and within 3°
// lies within a millimetre forward (plane) and inverse (ground).
TEST(CUTM, AgreesWithProjWithinAMillimetreInsideTheZone)
{
    for (int zone = -60; zone <= 60; zone += zone == -1 ? 2 : 1) {
        const CUTM utm = utmZone(zone);
        const ProjOracle proj("+proj=utm +ellps=WGS84 +zone=" + std::to_string(std::abs(zone))
                              + (zone < 0 ? " +south" : ""));
        for (const double lon : longitudes(zone, 10.0, 0.5)) {
            for (double lat = zone < 0 ? -80.0 : 0.0; lat <= (zone < 0 ? 0.0 : 84.0); lat += 2.0) {
                const auto [px, py] = proj.forward(lon, lat);
                double x = 0.0, y = 0.0, backLon = 0.0, backLat = 0.0;
                ASSERT_TRUE(utm.Project(lon, lat, x, y) && utm.Unproject(px, py, backLon, backLat));
                if (std::abs(lon - (6.0 * std::abs(zone) - 183.0)) > 3.0)
                    continue;
                EXPECT_LT(std::hypot(x - px, y - py), 0.001) << zone << ": " << lon << ", " << lat;
                EXPECT_LT(GroundDistance(backLon, backLat, lon, lat), 0.001) << zone << ": " << lon << ", " << lat;
            }
        }
    }
}

// The inverse series is truncated a term later than its error shows: within
// ±2° of the central meridian the round trip comes back to 1E-9°, at the
// zone's edge the longitude to 1E-8° (0.4 mm on the ground at most). On a
// sphere the closed formulas take an arc cosine of nearly 1 near the equator,
// which keeps half the digits: 2E-6° (0.2 m).
TEST(CUTM, RoundTripsInsideTheZone)
{
    for (const double minor : {kMinor, kMajor}) {
        for (const int zone : {1, 19, 31, 60, -1, -19, -31, -60}) {
            const CUTM utm = utmZone(zone, minor);
            for (const double lon : longitudes(zone, 3.0, 0.25)) {
                for (double lat = -80.0; lat <= 84.0; lat += 1.0) {
                    double x = 0.0, y = 0.0, backLon = 0.0, backLat = 0.0;
                    ASSERT_TRUE(utm.Project(lon, lat, x, y) && utm.Unproject(x, y, backLon, backLat));
                    const bool edge = std::abs(lon - (6.0 * std::abs(zone) - 183.0)) > 2.0;
                    const double tolerance = minor == kMajor ? 2E-6 : edge ? 1E-8 : 1E-9;
                    ASSERT_NEAR(backLon, lon, tolerance) << minor << " " << zone << ": " << lon << ", " << lat;
                    ASSERT_NEAR(backLat, lat, tolerance) << minor << " " << zone << ": " << lon << ", " << lat;
                }
            }
        }
    }
}

TEST(CUTM, BadInputChangesNothing)
{
    CUTM utm = utmZone(19);
    for (const auto& params : {std::array{0.0, 0.9996}, {0.4, 0.9996}, {61.0, 0.9996}, {-61.0, 0.9996},
                               {kNaN, 0.9996}, {20.0, 0.0}, {20.0, HUGE_VAL}}) {
        EXPECT_FALSE(utm.Init(kMajor, kMinor, params)) << params[0] << ", " << params[1];
    }
    EXPECT_FALSE(utm.Init(kMajor, kMinor, std::array{20.0}));
    EXPECT_FALSE(utm.Init(kNaN, kMinor, std::array{20.0, 0.9996}));
    double x = 7.0, y = 8.0;
    for (const auto& p : {std::array{kNaN, 0.0}, {0.0, kNaN}, {HUGE_VAL, 0.0}, {0.0, -HUGE_VAL}}) {
        EXPECT_FALSE(utm.Project(p[0], p[1], x, y) || utm.Unproject(p[0], p[1], x, y)) << p[0] << ", " << p[1];
    }
    EXPECT_FALSE(utm.Project(-69.0, 90.5, x, y)) << "off the globe";
    EXPECT_FALSE(CUTM().Project(-69.0, 0.0, x, y)) << "not initialised";
    // On an ellipsoid flattened to a tenth the footpoint iteration swings
    // further at every step and never settles.
    EXPECT_FALSE(utmZone(19, kMajor / 10).Unproject(500000.0, 3E6, x, y));
    EXPECT_EQ((std::array{x, y}), (std::array{7.0, 8.0}));
    // Still zone 19; beyond its pole the footpoint settles past π/2: the
    // pole on the central meridian (1E-8° off through our degree factor).
    ASSERT_TRUE(utm.Unproject(500000.0, 3E7, x, y));
    EXPECT_NEAR(x, -69.0, 2E-8);
    EXPECT_NEAR(y, 90.0, 2E-8);
    // Zones are rounded: 60.4 is zone 60.
    ASSERT_TRUE(utm.Init(kMajor, kMinor, std::array{60.4, 0.9996}) && utm.Project(177.0, 0.0, x, y));
    EXPECT_NEAR(x, 500000.0, 0.01);
}

// Equal axes take the closed spherical formulas, false origin included:
// PROJ's spherical tmerc is the reference both ways.
TEST(CUTM, SphereUsesTheClosedFormulas)
{
    CUTM utm;
    ASSERT_TRUE(utm.Init(6371000.0, 6371000.0, std::array{-19.0, 0.9996}));
    const ProjOracle proj("+proj=tmerc +R=6371000 +k_0=0.9996 +lon_0=-69 +x_0=500000 +y_0=10000000");
    for (const auto& [lon, lat] : {std::array{-75.0, -60.0}, {-69.0, 0.0}, {-64.5, -33.0}, {-66.0, 25.0}}) {
        const auto [px, py] = proj.forward(lon, lat);
        double x = 0.0, y = 0.0, backLon = 0.0, backLat = 0.0;
        ASSERT_TRUE(utm.Project(lon, lat, x, y) && utm.Unproject(px, py, backLon, backLat));
        EXPECT_LT(std::hypot(x - px, y - py), 1E-6) << lon << ", " << lat;
        EXPECT_LT(GroundDistance(backLon, backLat, lon, lat), 1E-6) << lon << ", " << lat;
    }
    double x = 0.0, y = 0.0;
    EXPECT_FALSE(utm.Project(-69.0 + 90.0, 0.0, x, y)) << "at infinity";
}

} // namespace
} // namespace orbelan
