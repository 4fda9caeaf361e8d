// Navigation with the mouse, the wheel, the keys and the zoom methods.

#include "ShownViewer.h"

#include <QSignalSpy>
#include <QTest>

using namespace orbelan;

namespace {

class ViewerNavigation : public ShownViewer {
protected:
    void expectView(double west, double south, double east, double north)
    {
        const BoundingBox& box = viewer.viewport().viewBox();
        EXPECT_NEAR(box.MinX, west, 1e-9);
        EXPECT_NEAR(box.MinY, south, 1e-9);
        EXPECT_NEAR(box.MaxX, east, 1e-9);
        EXPECT_NEAR(box.MaxY, north, 1e-9);
    }

    void drag(QPoint from, QPoint to)
    {
        QTest::mousePress(&viewer, Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(&viewer, to);
        QTest::mouseRelease(&viewer, Qt::LeftButton, Qt::NoModifier, to);
    }
};

TEST_F(ViewerNavigation, ZoomInAndOutAboutTheCentre)
{
    viewer.ZoomIn();
    expectView(-5, -2.5, 5, 2.5);
    viewer.ZoomOut();
    expectView(-10, -5, 10, 5);
}

TEST_F(ViewerNavigation, AZoomWindowDragZoomsToItsRectangleIfItHasAWidth)
{
    QSignalSpy up(&viewer, &Viewer::MouseUp);
    viewer.ZoomWindow();
    drag({200, 100}, {200, 150});
    expectView(-10, -5, 10, 5);
    EXPECT_TRUE(up.isEmpty());

    viewer.ZoomWindow();
    EXPECT_EQ(viewer.currentTool(), 1);
    drag({200, 100}, {300, 150}); // (0, 0) to (5, -2.5)
    expectView(0, -2.5, 5, 0);
    EXPECT_EQ(up.size(), 1);
    EXPECT_EQ(viewer.currentTool(), 0);
}

TEST_F(ViewerNavigation, APanDragMovesTheMapWithTheMouse)
{
    QSignalSpy up(&viewer, &Viewer::MouseUp);
    viewer.Pan();
    drag({200, 100}, {240, 80}); // the map follows: 2 degrees east, 1 north
    expectView(-12, -6, 8, 4);
    EXPECT_TRUE(up.isEmpty());
    EXPECT_EQ(viewer.currentTool(), 0);
}

TEST_F(ViewerNavigation, ZoomFactorZoomsAboutTheClickedPoint)
{
    for (const float ignored : {1.0f, 0.0f, -2.0f}) {
        viewer.ZoomFactor(ignored);
        EXPECT_EQ(viewer.currentTool(), 0);
    }
    viewer.ZoomFactor(4);
    EXPECT_EQ(viewer.currentTool(), 2);
    QTest::mouseClick(&viewer, Qt::LeftButton, Qt::NoModifier, {300, 100}); // (5, 0)
    expectView(2.5, -1.25, 7.5, 1.25);
    EXPECT_EQ(viewer.currentTool(), 0);
}

TEST_F(ViewerNavigation, TheWheelKeepsThePointUnderTheCursor)
{
    QWheelEvent wheel(QPointF(300, 100), viewer.mapToGlobal(QPointF(300, 100)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&viewer, &wheel);
    expectView(-2.5, -2.5, 7.5, 2.5);
    EXPECT_NEAR(viewer.viewport().ScreenToWorldX(300), 5, 1e-9);
}

TEST_F(ViewerNavigation, ArrowKeysMoveByAQuarterOfTheView)
{
    QTest::keyClick(&viewer, Qt::Key_Right);
    expectView(-5, -5, 15, 5);
    QTest::keyClick(&viewer, Qt::Key_Down);
    expectView(-5, -7.5, 15, 2.5);
}

TEST_F(ViewerNavigation, TheOriginMovesTheViewAndZoomExtentsShowsTheDefaultPointer)
{
    viewer.setProperty("origenX", 5.0f);
    viewer.setProperty("origenY", -1.0f);
    expectView(-5, -6, 15, 4);
    EXPECT_EQ(viewer.property("origenX").toFloat(), 5.0f);

    viewer.Pan();
    viewer.ZoomExtents();
    EXPECT_EQ(viewer.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ViewerNavigation, MovesReportTheGeographicPosition)
{
    QSignalSpy position(&viewer, &Viewer::MousePosition);
    QTest::mouseMove(&viewer, {100, 50});
    ASSERT_EQ(position.size(), 1);
    EXPECT_DOUBLE_EQ(position.at(0).at(0).toDouble(), -5);
    EXPECT_DOUBLE_EQ(position.at(0).at(1).toDouble(), 2.5);
}

TEST_F(ViewerNavigation, ZoomToSelectedShowsAPointWithItsSurroundings)
{
    layer& places = viewer.Layers().AddLayer("Lugares", 9, pointlayer, viewer.viewport());
    places.Entidades.AddEntity(4, std::vector<Vertex>{{-70.5, -33.4}}, places);
    places.Entidades.AddEntity(5, std::vector<Vertex>{{-70.4, -33.2}}, places);

    viewer.ZoomToSelected(9, {4});
    // 0.002 degrees high; the control is twice as wide as it is high.
    expectView(-70.502, -33.401, -70.498, -33.399);

    viewer.ZoomToSelected(9, {4, 5, 77});
    EXPECT_NEAR(viewer.viewport().viewBox().MinY, -33.4, 1e-9);
    EXPECT_NEAR(viewer.viewport().viewBox().MaxY, -33.2, 1e-9);
}

TEST_F(ViewerNavigation, ALayerWithoutCellSizeDoesNotStopTheView)
{
    addLayer(3, polygonlayer, 0);
    viewer.SetView(-1, -1, 1, 1);
    expectView(-2, -1, 2, 1);
}

// Escape drops the armed tool. So do shift and the right button, which free
// a control whose load never finished; no drag starts.
TEST_F(ViewerNavigation, EscapeOrShiftAndTheRightButtonDropTheTool)
{
    viewer.Pan();
    QTest::keyClick(&viewer, Qt::Key_Escape);
    EXPECT_EQ(viewer.currentTool(), 0);
    viewer.ZoomFactor(4);
    QTest::mouseClick(&viewer, Qt::RightButton, Qt::ShiftModifier, {10, 10});
    EXPECT_EQ(viewer.currentTool(), 0);
    expectView(-10, -5, 10, 5);
}

} // namespace
