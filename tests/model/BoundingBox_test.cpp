#include "model/BoundingBox.h"

#include <gtest/gtest.h>

#include <tuple>

using orbelan::BoundingBox;

namespace {

BoundingBox box(double minX, double minY, double maxX, double maxY)
{
    BoundingBox result;
    result.Union(minX, minY, maxX, maxY);
    return result;
}

TEST(BoundingBoxEmpty, HoldsNothingAndBecomesTheFirstUnion)
{
    BoundingBox empty;
    EXPECT_FALSE(empty.PointInBoundingBox(0, 0));
    EXPECT_FALSE(empty.InterseccionCon(box(-180, -90, 180, 90)));
    EXPECT_FALSE(box(-180, -90, 180, 90).InterseccionCon(empty));
    empty.Union(1, 2, 3, 4);
    EXPECT_EQ(std::tuple(empty.MinX, empty.MinY, empty.MaxX, empty.MaxY), std::tuple(1, 2, 3, 4));
}

TEST(BoundingBoxTests, AreInclusiveAndContainmentHasADirection)
{
    const BoundingBox a = box(0, 0, 1, 1);
    EXPECT_TRUE(a.InterseccionCon(box(1, 1, 2, 2)));
    EXPECT_TRUE(box(1, 0, 2, 1).InterseccionCon(a));
    EXPECT_FALSE(a.InterseccionCon(box(1.01, 0, 2, 1)));
    EXPECT_FALSE(a.InterseccionCon(box(0, -2, 1, -0.01)));
    EXPECT_TRUE(a.PointInBoundingBox(1, 0.5));
    EXPECT_TRUE(a.ContieneA(a) && a.ContenidoPor(a));
    EXPECT_TRUE(box(-1, -1, 2, 2).ContieneA(a) && a.ContenidoPor(box(-1, -1, 2, 2)));
    EXPECT_FALSE(a.ContieneA(box(-1, -1, 2, 2)) || a.ContenidoPor(box(0.5, 0.5, 2, 2)));
}

// On equal starts this box counts as the first, so only its own end is
// compared: a box whose end precedes its start shows the asymmetry.
TEST(BoundingBoxTests, IntersectionOnEqualStartsLooksAtThisBoxsEnd)
{
    BoundingBox inverted = box(0, 0, 10, 10);
    inverted.MaxX = -5;
    EXPECT_FALSE(inverted.InterseccionCon(box(0, 0, 10, 10)));
    EXPECT_TRUE(box(0, 0, 10, 10).InterseccionCon(inverted));
}

} // namespace
