// Drawing through the Viewer.

#include "ShownViewer.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>
#include <vector>

using namespace orbelan;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;

class ViewerDrawing : public ShownViewer {
protected:
    QRgb at(int x, int y) { return viewer.grab().toImage().pixel(x, y); }
};

class PaintCount : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(ViewerDrawing, LayersAreDrawnInOrderOverTheBackground)
{
    addRectangle(addLayer(1, polygonlayer, 0x0000FF), 1, -4, -2, 0, 2); // red, from pixel (120, 60)
    addRectangle(addLayer(2, polygonlayer, 0xFF0000), 1, -2, -4, 2, 0); // blue, over it
    QSignalSpy redrawn(&viewer, &Viewer::MapRedrawn);
    viewer.Redraw();
    EXPECT_EQ(redrawn.size(), 1);
    EXPECT_EQ(at(130, 70), kRed);
    EXPECT_EQ(at(180, 120), kBlue);
    EXPECT_EQ(at(300, 50), kWhite);
}

TEST_F(ViewerDrawing, RefreshShowsThePictureAgainWithoutDrawingTheMap)
{
    layer& parks = addLayer(1, polygonlayer, 0x0000FF);
    viewer.Redraw();
    addRectangle(parks, 1, -4, -2, 0, 2);
    QSignalSpy redrawn(&viewer, &Viewer::MapRedrawn);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&viewer));
    PaintCount painted;
    viewer.installEventFilter(&painted);
    viewer.Refresh();
    EXPECT_EQ(painted.count, 1);
    EXPECT_TRUE(redrawn.isEmpty());
    EXPECT_EQ(at(130, 70), kWhite);
}

TEST_F(ViewerDrawing, TheHostMaySetTheLayerCollection)
{
    addRectangle(addLayer(1, polygonlayer, 0xFF0000), 1, 2, -2, 4, 2);
    Layers chosen;
    const Viewport elsewhere;
    layer& parks = addLayer(chosen, elsewhere, 2, polygonlayer, 0x0000FF);
    addRectangle(parks, 1, -4, -2, 0, 2);
    viewer.setLayers(std::move(chosen));
    viewer.Redraw();
    EXPECT_EQ(viewer.Layers().count(), 1);
    EXPECT_EQ(&parks.parentMap(), &viewer.viewport());
    EXPECT_EQ(at(130, 70), kRed);
    EXPECT_EQ(at(260, 100), kWhite);
}

TEST_F(ViewerDrawing, AHiddenLayerShowsNothingAndHasNothingDrawn)
{
    layer& hidden = addLayer(1, polygonlayer, 0x0000FF);
    addRectangle(hidden, 1, -4, -2, 0, 2);
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
    viewer.setAntialiasing(false);
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
    addRectangle(first, 1, -8, -2, -6, 0);
    addRectangle(second, 1, 6, -2, 8, 0);
    viewer.Redraw();
    addRectangle(first, 2, -4, -2, -2, 0);
    addRectangle(second, 2, 2, -2, 4, 0);
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
    // Close enough for the 30-metre arrowhead to be 16 pixels long.
    constexpr double unit = 1.0 / 3000;
    viewer.SetView(-10 * unit, -5 * unit, 10 * unit, 5 * unit);
    layer& streets = addLayer(1, polylinelayer, 0x000000);
    streets.Loaded = true;
    streets.setUserDirectionVisibility(2);
    const std::vector<Vertex> street = {{-3 * unit, 0}, {3 * unit, 0}};
    streets.Entidades.AddEntity(1, street, streets).Direction = 1;
    addRectangle(addLayer(2, polygonlayer, 0x0000FF), 1, -5 * unit, -2 * unit, 5 * unit, 8 * unit);
    viewer.Redraw();
    EXPECT_EQ(at(208, 100), kWhite); // inside the arrowhead on the street's middle
    EXPECT_EQ(at(192, 100), kRed);   // behind it
}

TEST_F(ViewerDrawing, AnotherProjectionRedrawsFromTheVerticesNotFromTheLastPicture)
{
    Entidad& park = addRectangle(addLayer(1, polygonlayer, 0x0000FF), 1, -4, -2, 4, 2);
    viewer.Redraw();
    viewer.setProjection(1);
    viewer.SetView(-10, -5, 10, 5);
    viewer.Redraw();
    const QImage projected = viewer.grab().toImage();
    const std::vector<Vertex> same = park.GetPoints();
    park.SetPoints(same);
    viewer.Redraw();
    EXPECT_EQ(projected, viewer.grab().toImage());
    EXPECT_EQ(projected.pixel(150, 100), kRed);
}

// Placement 0 writes a line's name where the line is first drawn, on its
// first segment (the others would put it near the centre), and nothing once
// the layer's labels are hidden. The line is as white as the background.
TEST_F(ViewerDrawing, PlacementZeroNamesALineOnItsFirstSegment)
{
    viewer.setLabelPlacement(0);
    layer& streets = addLayer(1, polylinelayer, 0xFFFFFF);
    streets.Loaded = true;
    streets.setUserLabelVisibility(2);
    const std::vector<Vertex> street = {{-9, 3}, {-5, 3}, {9, -4}};
    streets.Entidades.AddEntity(1, street, streets).IDLabel = streets.GetLabelIndex("Alameda");
    // Dark pixels around (-7, 3), pixel (60, 40).
    const auto written = [this] {
        viewer.Redraw();
        const QImage picture = viewer.grab().toImage();
        int dark = 0;
        for (int y = 28; y < 52; ++y) {
            for (int x = 36; x < 84; ++x) {
                dark += qGray(picture.pixel(x, y)) < 100 ? 1 : 0;
            }
        }
        return dark;
    };
    EXPECT_GT(written(), 5);
    streets.setUserLabelVisibility(0);
    EXPECT_EQ(written(), 0);
}

} // namespace
