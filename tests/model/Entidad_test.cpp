#include "FakeViewer.h"
#include "model/Entidad.h"
#include "RecordingCanvas.h"
#include "model/layer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <vector>
#include <tuple>

using orbelan::Entidad;
using orbelan::TipoLayer;
using orbelan::Vertex;

namespace {

constexpr double kNoSegment = 1E30;

// An entity of the given kind, in a layer of its own.
struct Owned {
    Owned(TipoLayer kind, const std::vector<Vertex>& vertices)
    {
        owner.Tipo = kind;
        entity = &owner.Entidades.AddEntity(1, vertices, owner);
    }
    orbelan::layer owner{anyView()};
    Entidad* entity = nullptr;
};

const std::vector<Vertex> kUnitSquare = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

TEST(EntidadDistance, SegmentDistanceIsSignedByWhereTheFootFalls)
{
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 0, 0, 2, 0, false), 1);
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 2, 0, 3, 0, false), -1);
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 2, 0, 3, 0, true), 1);
    EXPECT_EQ(Entidad::SegmentDistance(3, 5, 0, 0, 0, 2, false), -3);
    EXPECT_DOUBLE_EQ(Entidad::SegmentDistance(0, 2, 0, 0, 2, 2, false), std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(Entidad::SegmentDistance(6, 0, 0, 0, 2, 2, false), -std::sqrt(18.0));
    EXPECT_EQ(Entidad::SegmentDistance(1, 1, 5, 5, 5, 5, true), kNoSegment);
}

TEST(EntidadDistance, DependsOnTheLayersKind)
{
    EXPECT_EQ(Owned(orbelan::pointlayer, {{3, 4}, {0, 0}}).entity->DistPuntoAEntidad(0, 0), 5);
    EXPECT_EQ(Owned(orbelan::pointlayer, {}).entity->DistPuntoAEntidad(7, 7), 0);
    EXPECT_EQ(Owned(orbelan::polygonlayer, kUnitSquare).entity->DistPuntoAEntidad(0.5, 0.5), kNoSegment);
    // Only segments whose foot falls on them count; vertices do not.
    EXPECT_EQ(Owned(orbelan::polylinelayer, {{2, 0}, {3, 0}}).entity->DistPuntoAEntidad(1, 1), kNoSegment);
    EXPECT_EQ(Owned(TipoLayer{3}, {{2, 0}, {3, 0}, {3, 3}}).entity->DistPuntoAEntidad(1, 2), 2);
    EXPECT_THROW(Entidad{}.DistPuntoAEntidad(0, 0), std::logic_error);
}

TEST(EntidadCentroide, PolygonsByArea)
{
    const std::vector<Vertex> clockwise(kUnitSquare.rbegin(), kUnitSquare.rend());
    EXPECT_EQ(Owned(orbelan::polygonlayer, kUnitSquare).entity->Centroide(), (Vertex{0.5, 0.5}));
    EXPECT_EQ(Owned(orbelan::polygonlayer, clockwise).entity->Centroide(), (Vertex{0.5, 0.5}));
    EXPECT_EQ(Owned(orbelan::polygonlayer, {{0, 0}, {3, 0}, {0, 3}}).entity->Centroide(), (Vertex{1, 1}));
    EXPECT_EQ(Owned(orbelan::polygonlayer, {{0, -4}, {2, -4}, {2, -2}, {0, -2}}).entity->Centroide(), (Vertex{1, -3}));
    // Without area: the mean of the vertices.
    EXPECT_EQ(Owned(orbelan::polygonlayer, {{0, 0}, {2, 2}, {4, 4}}).entity->Centroide(), (Vertex{2, 2}));
    EXPECT_EQ(Owned(orbelan::polylinelayer, {{0, 0}, {4, 2}, {2, 4}}).entity->Centroide(), (Vertex{2, 2}));
}

TEST(EntidadPointInPolygon, EdgesVerticesAndTheBox)
{
    const Owned square(orbelan::polygonlayer, kUnitSquare);
    // No edge's Y range holds 0 or 1 strictly; on the left edge the ray
    // crosses both sides, on the right edge only the right one.
    for (const auto& [x, y, inside] : {std::tuple{0.5, 0.5, true}, {0.0, 0.0, true}, {1.5, 0.5, false},
                                       {0.5, 0.0, false}, {0.5, 1.0, false}, {0.0, 0.5, false}, {1.0, 0.5, true}}) {
        EXPECT_EQ(square.entity->PointInPolygon(x, y), inside) << x << ", " << y;
    }
}

// The slanted right edge crosses Y = 0.5 a hair from X; whether it lies right
// of the point is decided after rounding to single precision.
TEST(EntidadPointInPolygon, TheCrossingIsRoundedToSinglePrecision)
{
    const auto insideWithCrossingAt = [](double X, double offset) {
        const double a = X - 0.5 + offset;
        const double b = X + 0.5 + offset;
        EXPECT_EQ(a + (b - a) * 0.5 > X, offset > 0) << "the test's own geometry";
        return Owned(orbelan::polygonlayer, {{-2, 0}, {a, 0}, {b, 1}, {-2, 1}}).entity->PointInPolygon(X, 0.5);
    };
    // float(0.1) is above 0.1 and float(0.7) below 0.7.
    EXPECT_TRUE(insideWithCrossingAt(0.1, -1E-12));
    EXPECT_FALSE(insideWithCrossingAt(0.7, 1E-12));
    // A crossing beyond the Single range still counts where it lies.
    const Owned spike(orbelan::polygonlayer, {{0, 0}, {1E39, 1}, {0, 2}});
    EXPECT_TRUE(spike.entity->PointInPolygon(1, 0.5));
    EXPECT_FALSE(spike.entity->PointInPolygon(-1, 0.5));
}

// NearestVertex takes the later of equally near vertices, GetNearestSegment
// starts from the first of them.
TEST(EntidadNearest, VertexTiesAndSegmentTies)
{
    const Owned line(orbelan::polylinelayer, {{0, 0}, {2, 0}, {4, 0}});
    EXPECT_EQ(line.entity->NearestVertex(1, 1).vertex, (Vertex{2, 0}));
    const orbelan::SegmentMatch first = line.entity->GetNearestSegment(1, 1);
    EXPECT_EQ(std::tuple(first.distance, first.from, first.to), std::tuple(1.0, Vertex{0, 0}, Vertex{2, 0}));
    const orbelan::SegmentMatch tie =
        Owned(orbelan::polylinelayer, {{0, 0}, {2, 0}, {2, 2}}).entity->GetNearestSegment(1.5, 0.5);
    EXPECT_EQ(std::tuple(tie.distance, tie.to), std::tuple(0.5, Vertex{2, 2}));
    EXPECT_EQ(Owned(orbelan::pointlayer, {{0, 0}, {1, 0}}).entity->GetNearestSegment(0, 1).distance, kNoSegment);
    EXPECT_EQ(line.entity->GetNearestSegment(-1, 1).distance, kNoSegment);
}

TEST(EntidadNearest, PolygonsWrapAroundAndLinesDoNot)
{
    const std::vector<Vertex> ring = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    const orbelan::SegmentMatch polygon = Owned(orbelan::polygonlayer, ring).entity->GetNearestSegment(0.5, 1);
    EXPECT_EQ(std::tuple(polygon.distance, polygon.to), std::tuple(0.5, Vertex{0, 4}));
    const orbelan::SegmentMatch line = Owned(orbelan::polylinelayer, ring).entity->GetNearestSegment(0.5, 1);
    EXPECT_EQ(std::tuple(line.distance, line.to), std::tuple(1.0, Vertex{4, 0}));
}

TEST(EntidadDrawing, DrawingAgainWithoutScreenPointsProjectsForTheCurrentView)
{
    Owned point(orbelan::pointlayer, {{1, 2}, {3, 4}});
    point.owner.ThematicMap().Add(0, 4, 0xFF, 0, 0, "MICanyMIC", "");
    Entidad& entity = *point.entity;
    RecordingCanvas canvas;
    canvas.view.Union(0, 0, 10, 10);
    entity.DrawWOCalc(canvas, point.owner.Tipo);
    ASSERT_EQ(canvas.calls.size(), 1u);
    EXPECT_EQ(canvas.calls[0].kind, RecordingCanvas::Points);
    EXPECT_EQ(canvas.calls[0].theme.DrawWidth, 4);
    const auto screen = entity.ScreenPoints();
    EXPECT_EQ(std::vector(screen.begin(), screen.end()), (std::vector<orbelan::ScreenPoint>{{1, -2}, {3, -4}}));

    canvas.view = {};
    canvas.view.Union(20, 20, 30, 30);
    EXPECT_FALSE(entity.Draw(canvas.view, canvas, point.owner.Tipo));
    EXPECT_TRUE(entity.ScreenPoints().empty());
    EXPECT_FALSE(entity.Draw(canvas.view, canvas, orbelan::ImageLayer));
}

// The recording surface's plane doubles X, so a line's angle and middle
// show that they are taken in the plane.
TEST(EntidadLabel, PlacedByKindAtTheRightAngleAndAlignment)
{
    struct Case {
        TipoLayer kind;
        std::vector<Vertex> vertices;
        Vertex position;
        double angle;
        std::int16_t align;
    };
    const std::vector<Case> cases = {
        {orbelan::pointlayer, {{3, 4}}, {3, 4}, 0, 1},
        {orbelan::polygonlayer, kUnitSquare, {0.5, 0.5}, 0, 3},
        {orbelan::polylinelayer, {{0, 0}, {1, 1}, {9, 9}}, {0.5, 0.5}, std::atan(0.5) * 180 / M_PI, 3},
        {orbelan::polylinelayer, {{2, 0}, {0, 1}}, {1, 0.5}, -std::atan(0.25) * 180 / M_PI, 3},
        {orbelan::polylinelayer, {{1, 5}, {1, 2}}, {1, 3.5}, 90, 3},
        {orbelan::polylinelayer, {{7, 8}}, {7, 8}, 90, 3},
    };
    for (const Case& c : cases) {
        Owned labelled(c.kind, c.vertices);
        labelled.owner.Labels().Add("first");
        labelled.entity->IDLabel = labelled.owner.GetLabelIndex("Los Leones");
        RecordingCanvas canvas;
        labelled.entity->DrawEntityLabel(canvas);
        ASSERT_EQ(canvas.labels.size(), 1u);
        const RecordingCanvas::Label& label = canvas.labels[0];
        EXPECT_EQ(label.text, "Los Leones");
        EXPECT_DOUBLE_EQ(label.X, c.position.X);
        EXPECT_DOUBLE_EQ(label.Y, c.position.Y);
        EXPECT_DOUBLE_EQ(label.angle, c.angle);
        EXPECT_EQ(label.align, c.align);
    }
}

TEST(EntidadLabel, NothingWithoutALabelOrWithoutVertices)
{
    Owned unlabelled(orbelan::pointlayer, {{3, 4}});
    unlabelled.owner.Labels().Add("text");
    RecordingCanvas canvas;
    unlabelled.entity->DrawEntityLabel(canvas);
    unlabelled.entity->IDLabel = 2; // no such text
    unlabelled.entity->DrawEntityLabel(canvas);

    Owned empty(orbelan::polylinelayer, {});
    empty.owner.Labels().Add("text");
    empty.entity->IDLabel = 1;
    empty.entity->DrawEntityLabel(canvas);
    EXPECT_TRUE(canvas.labels.empty());
}

} // namespace
