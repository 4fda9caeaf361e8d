// Drawing through the Viewer: a lat/lon view 400 x 200 pixels showing
// (-10, -5) to (10, 5), 20 pixels per degree, (0, 0) at pixel (200, 100).

#include "ui/ScriptedUiServices.h"
#include "model/Layers.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace orbelan;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;

class ViewerDrawing : public ::testing::Test {
protected:
    ViewerDrawing()
    {
        viewer.setUiServices(ui);
        viewer.setUserMode(false);
        viewer.resize(400, 200);
        viewer.show();
        viewer.SetView(-10, -5, 10, 5);
    }

    layer& addLayer(std::int32_t id, TipoLayer kind, std::int32_t color)
    {
        layer& added = viewer.Layers().AddLayer("layer", id, kind, viewer.viewport());
        added.AccessLevel = ALViewer;
        added.setUserVisibility(2);
        added.ThematicMap().Add(0, 1, color, color, 0, "MICanyMIC", "");
        return added;
    }

    static void addSquare(layer& to, std::int32_t id, double west, double south, double side)
    {
        const std::vector<Vertex> ring = {
            {west, south}, {west + side, south}, {west + side, south + side}, {west, south + side}};
        to.Entidades.AddEntity(id, ring, to);
    }

    QRgb at(int x, int y) { return viewer.grab().toImage().pixel(x, y); }

    ScriptedUiServices ui;
    Viewer viewer;
};

TEST_F(ViewerDrawing, LayersAreDrawnInOrderOverTheBackground)
{
    addSquare(addLayer(1, polygonlayer, 0x0000FF), 1, -4, -2, 4); // red, from pixel (120, 60)
    addSquare(addLayer(2, polygonlayer, 0xFF0000), 1, -2, -4, 4); // blue, over it
    QSignalSpy redrawn(&viewer, &Viewer::MapRedrawn);
    viewer.Redraw();
    EXPECT_EQ(redrawn.size(), 1);
    EXPECT_EQ(at(130, 70), kRed);
    EXPECT_EQ(at(180, 120), kBlue);
    EXPECT_EQ(at(300, 50), kWhite);
}

TEST_F(ViewerDrawing, AHiddenLayerShowsNothingAndHasNothingDrawn)
{
    layer& hidden = addLayer(1, polygonlayer, 0x0000FF);
    addSquare(hidden, 1, -4, -2, 4);
    viewer.Redraw();
    EXPECT_EQ(hidden.DrawnIDs().size(), 1u);
    hidden.setUserVisibility(0);
    viewer.Redraw();
    EXPECT_TRUE(hidden.DrawnIDs().empty());
    EXPECT_EQ(at(130, 70), kWhite);
}

TEST_F(ViewerDrawing, VerticesFarAwayOrNotNumbersAreCutOrLeftOut)
{
    layer& roads = addLayer(1, polylinelayer, 0x0000FF);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Vertex> road = {{-1e300, 0}, {0, 0}, {nan, 1}, {1e300, 1e300}, {5, -4}};
    roads.Entidades.AddEntity(1, road, roads);
    viewer.Redraw();
    EXPECT_EQ(roads.DrawnIDs().size(), 1u);
    EXPECT_EQ(at(20, 100), kRed);   // from far west to (0, 0)
    EXPECT_EQ(at(350, 130), kRed);  // from far north-east to (5, -4)
    EXPECT_EQ(at(210, 110), kWhite);
}

TEST_F(ViewerDrawing, RedrawingOneLayerTakesOnlyItsArrivals)
{
    layer& first = addLayer(1, polygonlayer, 0x0000FF);
    layer& second = addLayer(2, polygonlayer, 0xFF0000);
    addSquare(first, 1, -8, -2, 2);
    addSquare(second, 1, 6, -2, 2);
    viewer.Redraw();
    addSquare(first, 2, -4, -2, 2);
    addSquare(second, 2, 2, -2, 2);
    viewer.RedrawLayer(1);
    EXPECT_EQ(first.DrawnIDs(), (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(second.DrawnIDs(), (std::vector<std::int32_t>{1}));
    EXPECT_EQ(at(60, 120), kRed);   // drawn before
    EXPECT_EQ(at(140, 120), kRed);  // arrived
    EXPECT_EQ(at(340, 120), kBlue); // drawn before
    EXPECT_EQ(at(260, 120), kWhite);
}

TEST_F(ViewerDrawing, DirectionMarksLieOverEveryLayersGeometry)
{
    layer& streets = addLayer(1, polylinelayer, 0x000000);
    streets.Loaded = true;
    streets.setUserDirectionVisibility(2);
    const std::vector<Vertex> street = {{-3, 0}, {3, 0}};
    streets.Entidades.AddEntity(1, street, streets).Direction = 1;
    addSquare(addLayer(2, polygonlayer, 0x0000FF), 1, -5, -2, 10);
    viewer.Redraw();
    EXPECT_EQ(at(208, 100), kWhite); // inside the arrowhead on the street's middle
    EXPECT_EQ(at(192, 100), kRed);   // behind it
}

} // namespace
