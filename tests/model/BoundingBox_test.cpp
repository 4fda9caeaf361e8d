#include "BoundingBox.h"

#include <gtest/gtest.h>

using orbelan::BoundingBox;

namespace {

BoundingBox box(double minX, double minY, double maxX, double maxY)
{
    BoundingBox result;
    result.MinX = minX;
    result.MinY = minY;
    result.MaxX = maxX;
    result.MaxY = maxY;
    return result;
}

TEST(BoundingBoxEmpty, HoldsNothingAndBecomesTheFirstUnion)
{
    BoundingBox empty;
    EXPECT_FALSE(empty.PointInBoundingBox(0, 0));
    EXPECT_FALSE(empty.PointInBoundingBox(1E36, -1E36));
    const BoundingBox world = box(-180, -90, 180, 90);
    EXPECT_FALSE(empty.InterseccionCon(world));
    EXPECT_FALSE(world.InterseccionCon(empty));
    EXPECT_FALSE(empty.InterseccionCon(BoundingBox{}));

    empty.Union(1, 2, 3, 4);
    EXPECT_EQ(empty.MinX, 1);
    EXPECT_EQ(empty.MinY, 2);
    EXPECT_EQ(empty.MaxX, 3);
    EXPECT_EQ(empty.MaxY, 4);
}

TEST(BoundingBoxUnion, OnlyGrows)
{
    BoundingBox grown = box(0, 0, 10, 10);
    grown.Union(2, -5, 3, 4);
    EXPECT_EQ(grown.MinX, 0);
    EXPECT_EQ(grown.MinY, -5);
    EXPECT_EQ(grown.MaxX, 10);
    EXPECT_EQ(grown.MaxY, 10);
}

TEST(BoundingBoxTests, EdgesAndCornersCount)
{
    const BoundingBox a = box(0, 0, 1, 1);
    EXPECT_TRUE(a.InterseccionCon(box(1, 0, 2, 1)));
    EXPECT_TRUE(a.InterseccionCon(box(1, 1, 2, 2)));
    EXPECT_TRUE(box(1, 1, 2, 2).InterseccionCon(a));
    EXPECT_FALSE(a.InterseccionCon(box(1.01, 0, 2, 1)));
    EXPECT_FALSE(a.InterseccionCon(box(0, -2, 1, -0.01)));
    EXPECT_TRUE(a.PointInBoundingBox(1, 0.5));
    EXPECT_TRUE(a.PointInBoundingBox(0, 0));
    EXPECT_TRUE(a.ContieneA(a));
    EXPECT_TRUE(a.ContenidoPor(a));
}

TEST(BoundingBoxTests, ContainmentHasADirection)
{
    const BoundingBox outer = box(0, 0, 10, 10);
    const BoundingBox inner = box(2, 3, 4, 5);
    EXPECT_TRUE(outer.ContieneA(inner));
    EXPECT_FALSE(inner.ContieneA(outer));
    EXPECT_TRUE(inner.ContenidoPor(outer));
    EXPECT_FALSE(outer.ContenidoPor(inner));
    const BoundingBox across = box(5, 5, 15, 15);
    EXPECT_FALSE(outer.ContieneA(across));
    EXPECT_FALSE(across.ContenidoPor(outer));
}

// On equal starts this box counts as the first, so only its end is compared:
// the test is then not symmetric for a box whose end precedes its start.
TEST(BoundingBoxTests, IntersectionOnEqualStartsLooksAtThisBoxsEnd)
{
    const BoundingBox inverted = box(0, 0, -5, 10);
    const BoundingBox normal = box(0, 0, 10, 10);
    EXPECT_FALSE(inverted.InterseccionCon(normal));
    EXPECT_TRUE(normal.InterseccionCon(inverted));
}

} // namespace
