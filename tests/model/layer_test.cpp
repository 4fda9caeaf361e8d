#include "FakeViewer.h"
#include "model/layer.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <tuple>
#include <utility>
#include <vector>

using orbelan::Entidad;
using orbelan::GridCell;
using orbelan::layer;
using orbelan::Vertex;

namespace {

using IDs = std::vector<std::int32_t>;
using Cells = std::vector<GridCell>;

TEST(layerVisibility, ByZoomBetweenBothThresholdsInclusive)
{
    FakeViewer viewer; // 1000 pixels high
    layer map(viewer);
    map.AccessLevel = orbelan::ALViewer;
    map.ZoomMax = 2;   // 1000 / 2 / 1000 = 0.5 pixels per unit
    map.ZoomMin = 0.5; // 2 pixels per unit
    map.lblZoomMax = 1E37f;
    map.lblZoomMin = 0;
    map.setUserLabelVisibility(1);
    for (const auto& [scale, geometry, labels] : {std::tuple{0.5f, true, true}, {2.0f, true, true},
                                                  {0.49f, false, true}, {2.01f, false, true},
                                                  {99999.0f, false, true}, {100000.0f, false, false},
                                                  {1E-40f, false, true}}) {
        viewer.scale = scale;
        EXPECT_EQ(map.CalculateVisibility(), geometry) << scale;
        EXPECT_EQ(map.CalculateLabelVisibility(), labels) << scale;
    }
}

TEST(layerVisibility, UserLevelsOverrideTheZoomButNotTheAccess)
{
    layer map(anyView());
    map.AccessLevel = orbelan::ALViewer;
    map.setUserVisibility(2);
    EXPECT_TRUE(map.CalculateVisibility());
    map.setUserVisibility(3);
    EXPECT_EQ(map.UserVisibility(), 1);
    map.setUserVisibility(0);
    EXPECT_FALSE(map.CalculateVisibility());
    // Always shown, but not without access; the labels need none.
    map.setUserVisibility(2);
    map.setUserLabelVisibility(2);
    map.AccessLevel = orbelan::ALNoAccess;
    EXPECT_FALSE(map.CalculateVisibility());
    EXPECT_TRUE(map.CalculateLabelVisibility());
}

TEST(layerGrid, CellsRoundHalvesToEven)
{
    EXPECT_EQ(layer::GetRowColumn(0.5, 0.5, 1, 1), (GridCell{90, 180}));
    EXPECT_EQ(layer::GetRowColumn(1.5, 0, 1, 1), (GridCell{90, 182}));
    EXPECT_EQ(layer::GetRowColumn(-180.5, -91.5, 1, 1), (GridCell{-2, 0}));
    EXPECT_THROW(layer::GetRowColumn(0, 0, 0, 1), std::out_of_range);
    EXPECT_THROW(layer::GetRowColumn(std::numeric_limits<double>::quiet_NaN(), 0, 1, 1), std::out_of_range);
}

TEST(layerGrid, AreaRowsAreBoundedByTheColBoundsAndColumnsByTheRowBounds)
{
    layer map(anyView());
    map.GridDeltaX = map.GridDeltaY = 1;
    map.minCol = 10;
    map.maxCol = 12;
    map.minRow = 100;
    map.maxRow = 101;
    // Rows 5..20 and columns 50..200 before clamping.
    EXPECT_EQ(map.GetCellsInArea(-130, -85, 20, -70),
              (Cells{{10, 100}, {10, 101}, {11, 100}, {11, 101}, {12, 100}, {12, 101}}));
    // Only the last index is lowered, so a first row past maxCol gives nothing.
    EXPECT_TRUE(map.GetCellsInArea(-130, -75, 20, -70).empty());
    map.maxCol = map.maxRow = std::numeric_limits<std::int32_t>::max();
    map.GridDeltaX = map.GridDeltaY = 1E-5f;
    EXPECT_THROW(map.GetCellsInArea(-180, -90, 180, 90), std::length_error);
}

TEST(layerGrid, EntityCellsAreListedOnceInVertexOrder)
{
    layer map(anyView());
    map.GridDeltaX = map.GridDeltaY = 1;
    map.Entidades.AddEntity(7, std::vector<Vertex>{{1.6, 0.2}, {0.2, 0.2}, {1.9, 0.4}, {0.4, 1.6}}, map);
    EXPECT_EQ(map.GetEntityCells(7), (Cells{{90, 182}, {90, 180}, {92, 180}}));
    EXPECT_THROW(map.GetEntityCells(8), std::invalid_argument);
}

TEST(layerRequestedCells, RemovalMovesTheLastIntoPlace)
{
    layer map(anyView());
    for (const GridCell& cell : Cells{{1, 1}, {2, 2}, {3, 3}, {1, 1}}) {
        map.LabelCellSolicitada(cell.row, cell.column);
        map.CeldaSolicitada(cell.column, cell.row + 4);
    }
    EXPECT_TRUE(map.RemoveLabelCell(1, 1));
    EXPECT_TRUE(map.IsLabelCellSolicitada(1, 1));
    const auto labelCells = map.RequestedLabelCells().cells();
    EXPECT_EQ(Cells(labelCells.begin(), labelCells.end()), (Cells{{1, 1}, {2, 2}, {3, 3}}));
}

// A selectable layer of the given kind whose entities are drawn in the order
// added, all in the default class unless styled.
class DrawnLayer : public ::testing::Test {
protected:
    void setKind(orbelan::TipoLayer kind)
    {
        map.Tipo = kind;
        map.Selectable = true;
        map.ThematicMap().Add(0, 1, 0, 0, 0, "MICanyMIC", "");
    }

    Entidad& draw(std::int32_t id, const std::vector<Vertex>& vertices)
    {
        Entidad& entity = map.Entidades.AddEntity(id, vertices, map);
        map.AppendDrawnID(id);
        return entity;
    }

    // Puts the entity into a new class with the given outline and fill.
    void style(Entidad& entity, std::int16_t drawStyle, std::int16_t fillStyle)
    {
        map.ThematicMap().Add(drawStyle, 1, 0, 0, fillStyle, "", "");
        entity.ThemeCode = map.ThematicMap().count();
    }

    layer map{anyView()};
};

const std::vector<Vertex> kLine = {{0, 0}, {1, 0}};

std::vector<Vertex> square(double x, double y, double side)
{
    return {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}};
}

TEST_F(DrawnLayer, PickToleranceIsStrictAndTheLaterOfEqualsWins)
{
    setKind(orbelan::polylinelayer);
    draw(2, kLine);
    draw(1, kLine);
    EXPECT_EQ(map.SelectByPoint(0.5, 0.00065), 0);
    EXPECT_EQ(map.SelectByPoint(0.5, -0.0006), 1);
    EXPECT_EQ(map.SelectByPoint(0.5, -0.0009, 0.001), 1); // a view far out reaches further
    EXPECT_EQ(map.SelectByPoint(0.5, -0.0006, 0.0001), 1);
    EXPECT_EQ(map.SelectByPoint(1.0003, 0.0001), 0); // the foot is beyond the end
    map.ClearDrawnIDs();
    map.AppendDrawnID(1);
    map.AppendDrawnID(2);
    EXPECT_EQ(map.SelectByPoint(0.5, 0.0001), 2);
}

TEST_F(DrawnLayer, OnlyDrawnVisibleEntitiesOfASelectableLayerAreHit)
{
    setKind(orbelan::polylinelayer);
    style(draw(1, kLine), 5, 0);
    draw(2, {{0, 0.0005}, {1, 0.0005}});
    map.Entidades.AddEntity(3, std::vector<Vertex>{{0, 0.0001}, {1, 0.0001}}, map);
    EXPECT_EQ(map.SelectByPoint(0.5, 0), 2);
    map.Selectable = false;
    EXPECT_EQ(map.SelectByPoint(0.5, 0), 0);
}

TEST_F(DrawnLayer, HitTestsFollowReplacedRemovedAndLateEntities)
{
    setKind(orbelan::pointlayer);
    draw(1, {{0, 0}});
    map.AppendDrawnID(2); // drawn before it arrived
    map.Entidades.AddEntity(2, std::vector<Vertex>{{5, 5}}, map);
    EXPECT_EQ(map.SelectByPoint(5, 5), 2);
    map.Entidades.AddEntity(1, std::vector<Vertex>{{3, 3}}, map);
    EXPECT_EQ(map.SelectByPoint(0, 0), 0);
    EXPECT_EQ(map.SelectByPoint(3, 3), 1);
    map.RemoveEntity(1);
    EXPECT_EQ(map.SelectByPoint(3, 3), 0);
    draw(3, {}); // a point without vertices is 0 away from everywhere
    EXPECT_EQ(map.SelectByPoint(40, 40), 3);
}

TEST_F(DrawnLayer, PolygonsGoToTheFirstContainingOneUnlessUnseen)
{
    setKind(orbelan::polygonlayer);
    Entidad& outlined = draw(1, square(0, 0, 2));
    draw(2, square(1, 1, 2));
    style(outlined, 5, 0);
    EXPECT_EQ(map.SelectByPoint(1.5, 1.5), 1);
    style(outlined, 5, 1);
    EXPECT_EQ(map.SelectByPoint(1.5, 1.5), 2);
    EXPECT_EQ(map.SelectByPoint(0.5, 0.5), 0);
}

TEST_F(DrawnLayer, ManyPointsGoInAsTheyTieOrImprove)
{
    setKind(orbelan::pointlayer);
    const std::vector<Vertex> points = {{-7.5E-5, 0}, {5E-5, 0}, {6E-5, 0}, {0, 5E-5}, {0, -1E-5}, {3E-5, 0}};
    for (std::size_t k = 0; k < points.size(); ++k) {
        draw(static_cast<std::int32_t>(k + 1), {points[k]});
    }
    IDs picked = {0};
    map.SelectByPointMany(0, 0, picked);
    EXPECT_EQ(picked, (IDs{2, 4, 5}));
    picked = {0};
    map.SelectByPointMany(0, 0, picked, 1E-4);
    EXPECT_EQ(picked, (IDs{1, 2, 4, 5}));
}

TEST_F(DrawnLayer, ManyFillsAZeroInPlaceAndGrowsAfterAnID)
{
    setKind(orbelan::polylinelayer);
    draw(8, kLine);
    for (const auto& [before, after] : {std::pair{IDs{}, IDs{8}}, {IDs{0}, IDs{8}}, {IDs{7}, IDs{7, 8}}}) {
        IDs picked = before;
        map.SelectByPointMany(0.5, 0, picked);
        EXPECT_EQ(picked, after);
    }
}

TEST_F(DrawnLayer, PolygonSelectionLooksAtEveryEntityByVertex)
{
    setKind(orbelan::polylinelayer);
    map.Entidades.AddEntity(1, std::vector<Vertex>{{1, 1}, {2, 2}}, map); // inside, not drawn
    draw(2, {{5, 5}, {15, 5}});                                           // half in
    draw(3, {{-5, 5}, {5, 15}});                                          // across, no vertex in
    style(draw(4, {{3, 3}, {4, 4}}), 5, 0);                               // inside, unseen
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
    draw(1, {{0, 1}, {4, 1}});
    draw(2, {{0, -1}, {4, -1}});
    map.Entidades.AddEntity(3, std::vector<Vertex>{{0, 0.5}, {4, 0.5}}, map);
    const orbelan::SegmentMatch segment = map.NearestSegmentInLayer(1, 0);
    EXPECT_EQ(segment.distance, 1);
    EXPECT_EQ(segment.from, (Vertex{0, -1}));
    EXPECT_EQ(map.NearestVertexInLayer(1, 0).vertex, (Vertex{0, -1}));
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
    layer map(anyView());
    map.ThematicFieldType = 3;
    map.ThematicMap().Add(0, 1, 0, 0, 0, "0", "100");
    EXPECT_EQ(classOf(map, "50"), 1); // a single class takes everything
    map.ThematicMap().Add(0, 1, 0, 0, 0, "0", "10");
    map.ThematicMap().Add(0, 1, 0, 0, 0, "10", "20");
    for (const auto& [value, code] : {std::pair{"10", 2}, {"abc", 2}, {"25", 1}, {" 15.5kg", 3}}) {
        EXPECT_EQ(classOf(map, value), code) << value;
    }
}

TEST(layerThemes, TextClassesCompareTheTrimmedValueFromClassOne)
{
    layer map(anyView());
    map.ThematicFieldType = 202;
    map.ThematicMap().Add(0, 1, 0, 0, 0, "A", "");
    map.ThematicMap().Add(0, 1, 0, 0, 0, "A", "");
    map.ThematicMap().Add(0, 1, 0, 0, 0, "B c", "");
    for (const auto& [value, code] : {std::pair{"A", 1}, {"  B c  ", 3}, {"b c", 1}, {"\tB c", 1}}) {
        EXPECT_EQ(classOf(map, value), code) << value;
    }
}

TEST(layerLabels, IndexIsThePositionOfTheExactTextAndResetForgetsAll)
{
    layer map(anyView());
    Entidad& entity = map.Entidades.AddEntity(1, std::vector<Vertex>{}, map);
    EXPECT_EQ(map.GetLabelIndex("Main St"), 1);
    EXPECT_EQ(map.GetLabelIndex("main st"), 2);
    entity.IDLabel = map.GetLabelIndex("Main St");
    map.LabelCellSolicitada(1, 1);
    map.ResetLabels();
    EXPECT_EQ(entity.IDLabel, 0);
    EXPECT_FALSE(map.IsLabelCellSolicitada(1, 1));
    EXPECT_EQ(map.GetLabelIndex("Elm St"), 1);
}

TEST(layerAddresses, NeedALineLayerWithAllFiveRangeFields)
{
    layer map(anyView());
    map.Tipo = orbelan::TipoLayer{3};
    for (const char* name : {"STREET", "FROML", "FROMR", "TOL", "tor"}) {
        map.Campos().Add(name, 200);
    }
    EXPECT_FALSE(map.IsAddressLayer());
    map.Campos().Add("TOR", 3);
    EXPECT_TRUE(map.IsAddressLayer());
    map.Tipo = orbelan::polygonlayer;
    EXPECT_FALSE(map.IsAddressLayer());
}

} // namespace
