#include "Entidad.h"
#include "layer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <vector>

using orbelan::Entidad;
using orbelan::TipoLayer;
using orbelan::Vertex;

namespace {

constexpr double kNoSegment = 1E30;

// An entity of the given kind, in a layer of its own.
class EntityOfKind {
public:
    EntityOfKind(TipoLayer kind, std::vector<Vertex> vertices)
    {
        owner.Tipo = kind;
        entity = &owner.Entidades.AddEntity(1, vertices, owner);
    }

    orbelan::layer owner;
    Entidad* entity = nullptr;
};

const std::vector<Vertex> kUnitSquare = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

TEST(EntidadSegmentDistance, IsSignedByWhereTheFootFalls)
{
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 0, 0, 2, 0, false), 1);
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 2, 0, 3, 0, false), -1);
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 2, 0, 3, 0, true), 1);
    EXPECT_EQ(Entidad::SegmentDistance(3, 1, 0, 0, 0, 2, false), 3);
    EXPECT_EQ(Entidad::SegmentDistance(3, 5, 0, 0, 0, 2, false), -3);
    EXPECT_DOUBLE_EQ(Entidad::SegmentDistance(0, 2, 0, 0, 2, 2, false), std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(Entidad::SegmentDistance(6, 0, 0, 0, 2, 2, false), -std::sqrt(18.0));
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 5, 5, 5, 5, true), kNoSegment);
}

TEST(EntidadDistance, DependsOnTheLayersKind)
{
    EXPECT_EQ(EntityOfKind(orbelan::pointlayer, {{3, 4}, {0, 0}}).entity->DistPuntoAEntidad(0, 0), 5);
    EXPECT_EQ(EntityOfKind(orbelan::pointlayer, {}).entity->DistPuntoAEntidad(7, 7), 0);
    EXPECT_EQ(EntityOfKind(orbelan::polygonlayer, kUnitSquare).entity->DistPuntoAEntidad(0.5, 0.5), kNoSegment);

    // Only segments whose foot falls on them count; vertices do not.
    const std::vector<Vertex> hook = {{2, 0}, {3, 0}, {3, 3}};
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, {{2, 0}, {3, 0}}).entity->DistPuntoAEntidad(1, 1), kNoSegment);
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, hook).entity->DistPuntoAEntidad(1, 2), 2);
    EXPECT_EQ(EntityOfKind(TipoLayer{3}, hook).entity->DistPuntoAEntidad(1, 2), 2);
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, {{0, 0}, {0, 0}}).entity->DistPuntoAEntidad(0, 0), kNoSegment);

    Entidad orphan;
    EXPECT_THROW(orphan.DistPuntoAEntidad(0, 0), std::logic_error);
}

TEST(EntidadCentroide, IsTheAreaCentroidOfAPolygon)
{
    const std::vector<Vertex> clockwise(kUnitSquare.rbegin(), kUnitSquare.rend());
    for (const auto& ring : {kUnitSquare, clockwise}) {
        const Vertex centre = EntityOfKind(orbelan::polygonlayer, ring).entity->Centroide();
        EXPECT_DOUBLE_EQ(centre.X, 0.5);
        EXPECT_DOUBLE_EQ(centre.Y, 0.5);
    }
    const Vertex triangle = EntityOfKind(orbelan::polygonlayer, {{0, 0}, {3, 0}, {0, 3}}).entity->Centroide();
    EXPECT_DOUBLE_EQ(triangle.X, 1);
    EXPECT_DOUBLE_EQ(triangle.Y, 1);
    const Vertex below = EntityOfKind(orbelan::polygonlayer, {{0, -4}, {2, -4}, {2, -2}, {0, -2}}).entity->Centroide();
    EXPECT_DOUBLE_EQ(below.X, 1);
    EXPECT_DOUBLE_EQ(below.Y, -3);
}

TEST(EntidadCentroide, OtherKindsAndDegenerateShapes)
{
    EXPECT_EQ(EntityOfKind(orbelan::pointlayer, {{3, 4}, {9, 9}}).entity->Centroide(), (Vertex{3, 4}));
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, {{0, 0}, {4, 2}, {2, 4}}).entity->Centroide(), (Vertex{2, 2}));
    EXPECT_EQ(EntityOfKind(orbelan::polygonlayer, {{0, 0}, {2, 2}, {4, 4}}).entity->Centroide(), (Vertex{2, 2}));
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, {}).entity->Centroide(), (Vertex{0, 0}));
    EXPECT_EQ(EntityOfKind(orbelan::ImageLayer, {{5, 5}}).entity->Centroide(), (Vertex{0, 0}));
}

TEST(EntidadPointInPolygon, EdgesVerticesAndTheBox)
{
    const EntityOfKind owned(orbelan::polygonlayer, kUnitSquare);
    const Entidad& square = *owned.entity;
    EXPECT_TRUE(square.PointInPolygon(0.5, 0.5));
    EXPECT_TRUE(square.PointInPolygon(0, 0));
    EXPECT_TRUE(square.PointInPolygon(1, 1));
    EXPECT_FALSE(square.PointInPolygon(1.5, 0.5));
    // No edge's Y range holds 0 or 1 strictly: the bottom and top edges are
    // outside. On the left edge the ray crosses both sides, on the right only
    // the right one.
    EXPECT_FALSE(square.PointInPolygon(0.5, 0));
    EXPECT_FALSE(square.PointInPolygon(0.5, 1));
    EXPECT_FALSE(square.PointInPolygon(0, 0.5));
    EXPECT_TRUE(square.PointInPolygon(1, 0.5));
}

// The right edge of the quadrilateral crosses Y = 0.5 a hair from X; whether
// it lies right of the point is decided after rounding to single precision.
TEST(EntidadPointInPolygon, TheCrossingIsRoundedToSinglePrecision)
{
    const auto insideWithCrossingAt = [](double X, double offset) {
        const double a = X - 0.5 + offset;
        const double b = X + 0.5 + offset;
        const double crossing = a + (b - a) * 0.5;
        EXPECT_EQ(crossing > X, offset > 0) << "the test's own geometry";
        return EntityOfKind(orbelan::polygonlayer, {{-2, 0}, {a, 0}, {b, 1}, {-2, 1}}).entity->PointInPolygon(X, 0.5);
    };
    // float(0.1) is above 0.1 and float(0.7) below 0.7.
    EXPECT_TRUE(insideWithCrossingAt(0.1, -1E-12));
    EXPECT_FALSE(insideWithCrossingAt(0.7, 1E-12));
}

TEST(EntidadNearest, VertexTiesGoToTheLaterVertex)
{
    const orbelan::VertexMatch match =
        EntityOfKind(orbelan::polylinelayer, {{0, 1}, {2, 1}, {9, 9}}).entity->NearestVertex(1, 0);
    EXPECT_DOUBLE_EQ(match.distance, std::sqrt(2.0));
    EXPECT_EQ(match.vertex, (Vertex{2, 1}));
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, {}).entity->NearestVertex(0, 0).distance, 1E38);
}

TEST(EntidadNearest, SegmentStartsAtTheFirstOfEqualVertices)
{
    const orbelan::SegmentMatch match =
        EntityOfKind(orbelan::polylinelayer, {{0, 0}, {2, 0}, {4, 0}}).entity->GetNearestSegment(1, 1);
    EXPECT_EQ(match.distance, 1);
    EXPECT_EQ(match.from, (Vertex{0, 0}));
    EXPECT_EQ(match.to, (Vertex{2, 0}));
}

TEST(EntidadNearest, SegmentTiesGoToTheNextSegment)
{
    const orbelan::SegmentMatch match =
        EntityOfKind(orbelan::polylinelayer, {{0, 0}, {2, 0}, {2, 2}}).entity->GetNearestSegment(1.5, 0.5);
    EXPECT_EQ(match.distance, 0.5);
    EXPECT_EQ(match.from, (Vertex{2, 0}));
    EXPECT_EQ(match.to, (Vertex{2, 2}));
}

TEST(EntidadNearest, PolygonsWrapAroundAndLinesDoNot)
{
    const std::vector<Vertex> ring = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    const orbelan::SegmentMatch polygon = EntityOfKind(orbelan::polygonlayer, ring).entity->GetNearestSegment(0.5, 1);
    EXPECT_EQ(polygon.distance, 0.5);
    EXPECT_EQ(polygon.to, (Vertex{0, 4}));
    const orbelan::SegmentMatch line = EntityOfKind(orbelan::polylinelayer, ring).entity->GetNearestSegment(0.5, 1);
    EXPECT_EQ(line.distance, 1);
    EXPECT_EQ(line.to, (Vertex{4, 0}));
}

TEST(EntidadNearest, NoSegmentForPointsOrFeetOutside)
{
    EXPECT_EQ(EntityOfKind(orbelan::pointlayer, {{0, 0}, {1, 0}}).entity->GetNearestSegment(0, 1).distance, kNoSegment);
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, {{0, 0}, {1, 0}}).entity->GetNearestSegment(-1, 1).distance,
              kNoSegment);
    EXPECT_EQ(EntityOfKind(orbelan::polylinelayer, {}).entity->GetNearestSegment(0, 0).distance, kNoSegment);
}

TEST(EntidadBoundingBox, OnlyGrowsAndGrowsTheLayer)
{
    EntityOfKind owned(orbelan::polylinelayer, {{0, 0}, {1, 1}});
    Entidad& entity = *owned.entity;
    entity.SetPoints(std::vector<Vertex>{{5, 5}, {6, 7}});
    EXPECT_EQ(entity.UboundPoints(), 2);
    entity.CalculateBoundingBox();
    EXPECT_EQ(entity.bb.MinX, 0);
    EXPECT_EQ(entity.bb.MinY, 0);
    EXPECT_EQ(entity.bb.MaxX, 6);
    EXPECT_EQ(entity.bb.MaxY, 7);
    EXPECT_EQ(owned.owner.bb.MaxY, 7);
    EXPECT_EQ(owned.owner.bb.MinX, 0);
}

} // namespace
