#include "FakeViewer.h"
#include "layer.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <vector>

using orbelan::Entidad;
using orbelan::GridCell;
using orbelan::layer;
using orbelan::Vertex;

namespace {

using IDs = std::vector<std::int32_t>;

// A layer of the given kind whose entities are all drawn, in the order added.
class DrawnLayer : public ::testing::Test {
protected:
    void setKind(orbelan::TipoLayer kind)
    {
        map.Tipo = kind;
        map.Selectable = true;
        map.ThematicMap().Add(0, 1, 0, 0, 0, "MICanyMIC", "");
    }

    Entidad& draw(std::int32_t id, std::vector<Vertex> vertices)
    {
        Entidad& entity = map.Entidades.AddEntity(id, vertices, map);
        map.AppendDrawnID(id);
        return entity;
    }

    // Puts the entity into a new class with the given outline and fill.
    void styleOf(Entidad& entity, std::int32_t drawStyle, std::int32_t fillStyle)
    {
        map.ThematicMap().Add(static_cast<std::int16_t>(drawStyle), 1, 0, 0, static_cast<std::int16_t>(fillStyle), "", "");
        entity.ThemeCode = map.ThematicMap().count();
    }

    layer map;
};

std::vector<Vertex> pointAt(double x, double y)
{
    return {{x, y}};
}

std::vector<Vertex> square(double x, double y, double side)
{
    return {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}};
}

TEST(layerVisibility, ByZoomBetweenBothThresholdsInclusive)
{
    FakeViewer viewer;
    layer map;
    map.parentMap = &viewer;
    map.AccessLevel = orbelan::ALViewer;
    map.ZoomMax = 2;   // 1000 px / 2 / 1000 = 0.5 px per unit
    map.ZoomMin = 0.5; // 2 px per unit
    for (const auto& [scale, visible] : {std::pair{0.5f, true}, {2.0f, true}, {1.0f, true}, {0.49f, false},
                                         {2.01f, false}}) {
        viewer.scale = scale;
        EXPECT_EQ(map.CalculateVisibility(), visible) << scale;
    }
    map.AccessLevel = orbelan::ALNoAccess;
    viewer.scale = 1;
    EXPECT_FALSE(map.CalculateVisibility());
}

TEST(layerVisibility, ZeroAndTheSingleOneE37LiftTheLimits)
{
    FakeViewer viewer;
    layer map;
    map.parentMap = &viewer;
    map.lblZoomMin = 0;
    map.lblZoomMax = 1E37f;
    map.setUserLabelVisibility(1);
    for (const auto& [scale, visible] : {std::pair{1E-30f, true}, {99999.0f, true}, {100000.0f, false}}) {
        viewer.scale = scale;
        EXPECT_EQ(map.CalculateLabelVisibility(), visible) << scale;
    }
    // A zero upper value shows the item only from 99999 pixels per unit on.
    map.DirectionZoomMax = 0;
    map.DirectionZoomMin = 1E-6f;
    map.setUserDirectionVisibility(1);
    for (const auto& [scale, visible] : {std::pair{99998.0f, false}, {99999.0f, true}, {500000.0f, true}}) {
        viewer.scale = scale;
        EXPECT_EQ(map.CalculateDirectionVisibility(), visible) << scale;
    }
}

TEST(layerVisibility, UserLevelsOverrideTheZoom)
{
    layer map;
    EXPECT_EQ(map.UserVisibility(), 1);
    EXPECT_EQ(map.UserLabelVisibility(), 0);
    map.AccessLevel = orbelan::ALDraw;
    map.setUserVisibility(2);
    EXPECT_TRUE(map.CalculateVisibility());
    map.setUserVisibility(0);
    EXPECT_FALSE(map.CalculateVisibility());
    for (const std::int16_t odd : {std::int16_t{3}, std::int16_t{-1}, std::int16_t{100}}) {
        map.setUserVisibility(odd);
        EXPECT_EQ(map.UserVisibility(), 1);
    }
    // Level 1 needs the Viewer's scale.
    EXPECT_THROW(map.CalculateVisibility(), std::logic_error);
}

TEST(layerGrid, CellsRoundHalvesToEven)
{
    EXPECT_EQ(layer::GetRowColumn(0.5, 0.5, 1, 1), (GridCell{90, 180}));
    EXPECT_EQ(layer::GetRowColumn(1.5, 0, 1, 1), (GridCell{90, 182}));
    EXPECT_EQ(layer::GetRowColumn(-180.5, -91.5, 1, 1), (GridCell{-2, 0}));
    EXPECT_EQ(layer::GetRowColumn(0.74, 0.76, 0.5f, 0.5f), (GridCell{182, 361}));
}

TEST(layerGrid, IndicesBeyondALongAreRefused)
{
    EXPECT_THROW(layer::GetRowColumn(0, 0, 0, 1), std::out_of_range);
    EXPECT_THROW(layer::GetRowColumn(std::numeric_limits<double>::quiet_NaN(), 0, 1, 1), std::out_of_range);
    EXPECT_THROW(layer::GetRowColumn(1E300, 0, 1, 1), std::out_of_range);
}

TEST(layerGrid, AreaRowsAreBoundedByTheColBoundsAndColumnsByTheRowBounds)
{
    layer map;
    map.GridDeltaX = 1;
    map.GridDeltaY = 1;
    map.minCol = 10;
    map.maxCol = 12;
    map.minRow = 100;
    map.maxRow = 101;
    // Rows 5..20 and columns 50..200 before clamping.
    EXPECT_EQ(map.GetCellsInArea(-130, -85, 20, -70),
              (std::vector<GridCell>{{10, 100}, {10, 101}, {11, 100}, {11, 101}, {12, 100}, {12, 101}}));
    // Only the last index is lowered, so a first row past maxCol is empty.
    EXPECT_TRUE(map.GetCellsInArea(-130, -75, 20, -70).empty());
}

TEST(layerGrid, AnAreaOfMoreCellsThanALongCountsIsRefused)
{
    layer map;
    map.GridDeltaX = 1E-5f;
    map.GridDeltaY = 1E-5f;
    map.maxCol = std::numeric_limits<std::int32_t>::max();
    map.maxRow = std::numeric_limits<std::int32_t>::max();
    EXPECT_THROW(map.GetCellsInArea(-180, -90, 180, 90), std::length_error);
}

TEST(layerGrid, EntityCellsAreListedOnceInVertexOrder)
{
    layer map;
    map.GridDeltaX = 1;
    map.GridDeltaY = 1;
    map.Entidades.AddEntity(7, std::vector<Vertex>{{1.6, 0.2}, {0.2, 0.2}, {1.9, 0.4}, {0.4, 1.6}}, map);
    EXPECT_EQ(map.GetEntityCells(7), (std::vector<GridCell>{{90, 182}, {90, 180}, {92, 180}}));
    EXPECT_THROW(map.GetEntityCells(8), std::invalid_argument);
}

TEST(layerRequestedCells, ListsKeepOrderAndRemovalMovesTheLastIntoPlace)
{
    layer map;
    map.LabelCellSolicitada(1, 1);
    map.LabelCellSolicitada(2, 2);
    map.LabelCellSolicitada(3, 3);
    map.LabelCellSolicitada(1, 1);
    EXPECT_TRUE(map.RemoveLabelCell(1, 1));
    EXPECT_TRUE(map.IsLabelCellSolicitada(1, 1));
    EXPECT_EQ(std::vector<GridCell>(map.RequestedLabelCells().cells().begin(), map.RequestedLabelCells().cells().end()),
              (std::vector<GridCell>{{1, 1}, {2, 2}, {3, 3}}));
    EXPECT_TRUE(map.RemoveLabelCell(1, 1));
    EXPECT_FALSE(map.IsLabelCellSolicitada(1, 1));
    EXPECT_FALSE(map.RemoveLabelCell(9, 9));
    EXPECT_FALSE(map.IsCeldaSolicitada(2, 2));
    EXPECT_FALSE(map.IsDirectionCellSolicitada(2, 2));
    EXPECT_FALSE(map.IsCeldaSolicitada(2, 3));
}

TEST(layerRequestedCells, RequestCellsAgainAsksForEachInOrder)
{
    FakeViewer viewer;
    layer map;
    map.parentMap = &viewer;
    map.CeldaSolicitada(5, 6);
    map.CeldaSolicitada(1, 2);
    // A Viewer that notes further cells while being asked must not upset the
    // loop.
    viewer.onRequest = [&map] { map.CeldaSolicitada(9, 9); };
    map.RequestCellsAgain();
    EXPECT_EQ(viewer.requests, (std::vector<GridCell>{{5, 6}, {1, 2}}));
    EXPECT_EQ(map.RequestedCells().count(), 4u);
}

TEST_F(DrawnLayer, PickToleranceIsStrict)
{
    setKind(orbelan::polylinelayer);
    draw(1, {{0, 0}, {1, 0}});
    EXPECT_EQ(map.SelectByPoint(0.5, 0.00065), 0);
    EXPECT_EQ(map.SelectByPoint(0.5, -0.0006), 1);
    EXPECT_EQ(map.SelectByPoint(1.0003, 0.0001), 0); // beyond the end: the foot is outside
}

TEST_F(DrawnLayer, OfEqualDistancesTheLaterDrawnWins)
{
    setKind(orbelan::polylinelayer);
    map.Entidades.AddEntity(1, std::vector<Vertex>{{0, 0}, {1, 0}}, map);
    map.Entidades.AddEntity(2, std::vector<Vertex>{{0, 0}, {1, 0}}, map);
    map.AppendDrawnID(2);
    map.AppendDrawnID(1);
    EXPECT_EQ(map.SelectByPoint(0.5, 0.0001), 1);
    map.ClearDrawnIDs();
    map.AppendDrawnID(1);
    map.AppendDrawnID(2);
    EXPECT_EQ(map.SelectByPoint(0.5, 0.0001), 2);
}

TEST_F(DrawnLayer, OnlyDrawnVisibleEntitiesOfASelectableLayerAreHit)
{
    setKind(orbelan::polylinelayer);
    Entidad& hidden = draw(1, {{0, 0}, {1, 0}});
    draw(2, {{0, 0.0005}, {1, 0.0005}});
    map.Entidades.AddEntity(3, std::vector<Vertex>{{0, 0.0001}, {1, 0.0001}}, map);
    styleOf(hidden, 5, 0);
    EXPECT_EQ(map.SelectByPoint(0.5, 0), 2);
    map.Selectable = false;
    EXPECT_EQ(map.SelectByPoint(0.5, 0), 0);
    map.Selectable = true;
    map.Tipo = orbelan::ImageLayer;
    EXPECT_EQ(map.SelectByPoint(0.5, 0), 0);
}

TEST_F(DrawnLayer, HitTestsFollowRemovedAndReplacedEntities)
{
    setKind(orbelan::pointlayer);
    draw(1, pointAt(0, 0));
    map.AppendDrawnID(2); // drawn before it arrived
    map.Entidades.AddEntity(2, pointAt(5, 5), map);
    EXPECT_EQ(map.SelectByPoint(5, 5), 2);
    map.Entidades.AddEntity(1, pointAt(3, 3), map);
    EXPECT_EQ(map.SelectByPoint(0, 0), 0);
    EXPECT_EQ(map.SelectByPoint(3, 3), 1);
    map.RemoveEntity(1);
    EXPECT_EQ(map.SelectByPoint(3, 3), 0);
}

TEST_F(DrawnLayer, APointWithoutVerticesIsEverywhere)
{
    setKind(orbelan::pointlayer);
    draw(1, pointAt(0, 0));
    draw(2, {});
    EXPECT_EQ(map.SelectByPoint(40, 40), 2);
}

TEST_F(DrawnLayer, PolygonsGoToTheFirstContainingOneUnlessUnseen)
{
    setKind(orbelan::polygonlayer);
    Entidad& outlineOnly = draw(1, square(0, 0, 2));
    draw(2, square(1, 1, 2));
    styleOf(outlineOnly, 5, 0);
    EXPECT_EQ(map.SelectByPoint(1.5, 1.5), 1);
    EXPECT_EQ(map.SelectByPoint(2.5, 2.5), 2);
    styleOf(outlineOnly, 5, 1);
    EXPECT_EQ(map.SelectByPoint(1.5, 1.5), 2);
    EXPECT_EQ(map.SelectByPoint(0.5, 0.5), 0);
}

TEST_F(DrawnLayer, ManyPointsAreTakenAsTheyTieOrImprove)
{
    setKind(orbelan::pointlayer);
    draw(1, pointAt(-7.5E-5, 0)); // the nearest so far, but not near enough
    draw(2, pointAt(5E-5, 0));
    draw(3, pointAt(6E-5, 0));
    draw(4, pointAt(0, 5E-5));
    draw(5, pointAt(0, -1E-5));
    draw(6, pointAt(3E-5, 0));
    IDs picked = {0};
    map.SelectByPointMany(0, 0, picked);
    EXPECT_EQ(picked, (IDs{2, 4, 5}));
}

TEST_F(DrawnLayer, ManyFillsAZeroInPlaceAndGrowsAfterAnID)
{
    setKind(orbelan::polylinelayer);
    draw(8, {{0, 0}, {1, 0}});
    IDs empty;
    map.SelectByPointMany(0.5, 0, empty);
    EXPECT_EQ(empty, (IDs{8}));
    IDs zero = {0};
    map.SelectByPointMany(0.5, 0, zero);
    EXPECT_EQ(zero, (IDs{8}));
    IDs seven = {7};
    map.SelectByPointMany(0.5, 0, seven);
    EXPECT_EQ(seven, (IDs{7, 8}));
    IDs untouched = {7};
    map.SelectByPointMany(0.5, 1, untouched);
    EXPECT_EQ(untouched, (IDs{7}));
}

TEST_F(DrawnLayer, PolygonSelectionLooksAtEveryEntityByVertex)
{
    setKind(orbelan::polylinelayer);
    map.Entidades.AddEntity(1, std::vector<Vertex>{{1, 1}, {2, 2}}, map);     // inside, not drawn
    draw(2, {{5, 5}, {15, 5}});                                               // half in
    draw(3, {{-5, 5}, {5, 15}});                                              // crosses, no vertex in
    draw(4, {{20, 20}, {30, 30}});                                            // outside
    Entidad& unseen = draw(5, {{3, 3}, {4, 4}});
    styleOf(unseen, 5, 0);
    const std::vector<double> xs = {0, 10, 10, 0};
    const std::vector<double> ys = {0, 0, 10, 10};
    EXPECT_EQ(map.SelectElementsInPolygon(xs, ys, false), (IDs{1, 2}));
    EXPECT_EQ(map.SelectElementsInPolygon(xs, ys, true), (IDs{1}));
    const std::vector<double> far = {100, 110, 110};
    EXPECT_TRUE(map.SelectElementsInPolygon(far, far, false).empty());
    EXPECT_THROW(map.SelectElementsInPolygon(xs, far, false), std::invalid_argument);
}

TEST_F(DrawnLayer, NearestSegmentAndVertexTakeTheLaterOnTies)
{
    setKind(orbelan::polylinelayer);
    EXPECT_EQ(map.NearestSegmentInLayer(0, 0).distance, 1E30);
    EXPECT_EQ(map.NearestVertexInLayer(0, 0).distance, 1E38);
    draw(1, {{0, 1}, {4, 1}});
    draw(2, {{0, -1}, {4, -1}});
    map.Entidades.AddEntity(3, std::vector<Vertex>{{0, 0.5}, {4, 0.5}}, map);
    const orbelan::SegmentMatch segment = map.NearestSegmentInLayer(1, 0);
    EXPECT_EQ(segment.distance, 1);
    EXPECT_EQ(segment.from, (Vertex{0, -1}));
    const orbelan::VertexMatch vertex = map.NearestVertexInLayer(1, 0);
    EXPECT_EQ(vertex.vertex, (Vertex{0, -1}));
}

// The class an entity with the value gets, starting from a stale one.
std::int32_t classOf(const layer& map, const char* value)
{
    Entidad entity;
    entity.ThemeValue = value;
    entity.ThemeCode = 9;
    map.CalculateThemeObject(&entity);
    return entity.ThemeCode;
}

TEST(layerThemes, NumericClassesFromTwoOnFirstMatchWins)
{
    layer map;
    map.ThematicFieldType = 3;
    map.ThematicMap().Add(0, 1, 0, 0, 0, "0", "100");
    map.ThematicMap().Add(0, 1, 0, 0, 0, "0", "10");
    map.ThematicMap().Add(0, 1, 0, 0, 0, "10", "20");
    for (const auto& [value, code] : {std::pair{"10", 2}, {"abc", 2}, {"25", 1}, {" 15.5kg", 3}, {"5", 2}}) {
        EXPECT_EQ(classOf(map, value), code) << value;
    }
    map.CalculateThemeObject(nullptr);
}

TEST(layerThemes, TextClassesCompareTheTrimmedValueFromClassOne)
{
    layer map;
    map.ThematicFieldType = 202;
    map.ThematicMap().Add(0, 1, 0, 0, 0, "A", "");
    map.ThematicMap().Add(0, 1, 0, 0, 0, "A", "");
    map.ThematicMap().Add(0, 1, 0, 0, 0, "B c", "");
    for (const auto& [value, code] : {std::pair{"A", 1}, {"  B c  ", 3}, {"b c", 1}, {"\tB c", 1}}) {
        EXPECT_EQ(classOf(map, value), code) << value;
    }
}

TEST(layerThemes, ASingleClassTakesEverything)
{
    layer map;
    map.ThematicFieldType = 3;
    map.ThematicMap().Add(0, 1, 0, 0, 0, "0", "10");
    EXPECT_EQ(classOf(map, "50"), 1);
}

TEST(layerThemes, DefaultThemeIsClassOne)
{
    layer map;
    EXPECT_EQ(map.DefaultTheme(), nullptr);
    EXPECT_THROW(map.setDefaultTheme(orbelan::Theme{}), std::out_of_range);
    map.ThematicMap().Add(0, 1, 0, 0, 0, "MICanyMIC", "");
    orbelan::Theme red;
    red.DrawColor = 0x0000FF;
    map.setDefaultTheme(red);
    EXPECT_EQ(map.ThematicMap().Item("1")->DrawColor, 0x0000FF);
}

TEST(layerLabels, IndexIsThePositionOfTheExactText)
{
    layer map;
    EXPECT_EQ(map.GetLabelIndex("Main St"), 1);
    EXPECT_EQ(map.GetLabelIndex("Elm St"), 2);
    EXPECT_EQ(map.GetLabelIndex("Main St"), 1);
    EXPECT_EQ(map.GetLabelIndex("main st"), 3);
}

TEST(layerLabels, ResetForgetsTextsCellsAndEveryEntitysLabel)
{
    layer map;
    Entidad& entity = map.Entidades.AddEntity(1, std::vector<Vertex>{}, map);
    entity.IDLabel = map.GetLabelIndex("old");
    entity.ThemeValue = "7";
    entity.ThemeCode = 2;
    map.LabelCellSolicitada(1, 1);
    map.ResetLabels();
    EXPECT_EQ(entity.IDLabel, 0);
    EXPECT_EQ(map.Labels().count(), 0);
    EXPECT_FALSE(map.IsLabelCellSolicitada(1, 1));
    map.Labels().Add("new");
    EXPECT_EQ(map.Labels().Item("1")->word, "new");

    map.ResetThemes();
    EXPECT_EQ(entity.ThemeValue, "");
    EXPECT_EQ(entity.ThemeCode, 1);
}

TEST(layerAddresses, NeedALineLayerWithAllFiveRangeFields)
{
    layer map;
    map.Tipo = orbelan::polylinelayer;
    for (const char* name : {"STREET", "FROML", "FROMR", "TOL"}) {
        map.Campos().Add(name, 200);
    }
    EXPECT_FALSE(map.IsAddressLayer());
    map.Campos().Add("tor", 3);
    EXPECT_FALSE(map.IsAddressLayer());
    map.Campos().Add("TOR", 3);
    EXPECT_TRUE(map.IsAddressLayer());
    map.Tipo = orbelan::TipoLayer{3};
    EXPECT_TRUE(map.IsAddressLayer());
    map.Tipo = orbelan::polygonlayer;
    EXPECT_FALSE(map.IsAddressLayer());
}

} // namespace
