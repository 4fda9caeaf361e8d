// The mouse tools that collect points, driven by mouse, keys and menu items.

#include "ShownViewer.h"
#include "viewer/tools/MeasureTool.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>

using namespace orbelan;

namespace {

class ViewerTools : public ShownViewer {
protected:
    void click(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&viewer, button, Qt::NoModifier, at);
    }

    // What a window system delivers: the double click instead of the second press.
    void doubleClick(QPoint at)
    {
        click(at);
        QMouseEvent twice(QEvent::MouseButtonDblClick, at, viewer.mapToGlobal(QPointF(at)), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&viewer, &twice);
        QTest::mouseRelease(&viewer, Qt::LeftButton, Qt::NoModifier, at);
    }

    void choose(const char* item) { viewer.findChild<QAction*>(item)->trigger(); }

    QString resume()
    {
        choose("mnuCerrarPline");
        return ui.messages().empty() ? QString() : ui.messages().back().text;
    }
};

// The legs add up; a double click enters one point; Backspace takes the
// last point back; the length runs on to the pointer while it moves.
TEST_F(ViewerTools, MeasuringARightAngleAddsBothLegs)
{
    viewer.MeasureDistance();
    click({200, 100});       // (0, 0)
    doubleClick({300, 60});  // (5, 2), once
    QTest::keyClick(&viewer, Qt::Key_Backspace);
    click({260, 100});       // (3, 0)
    QTest::mouseMove(&viewer, {260, 20}); // (3, 4)
    EXPECT_EQ(viewer.statusText(), "Distance: 7 m.");
    click({260, 20});
    click({260, 20}, Qt::RightButton);
    ASSERT_EQ(ui.menus().size(), 1u);
    EXPECT_EQ(ui.menus().back().objectName, "mnuEnd");
    EXPECT_EQ(resume(), "Total distance: 7 m.");
    EXPECT_EQ(viewer.currentTool(), 0);
    EXPECT_EQ(MeasureTool::totalText(12.349), "Total distance: 12.34 m.");
}

// The release that ends a zoom drag resumes measuring without a point; a
// click after a zoom without a drag adds one.
TEST_F(ViewerTools, TheClickEndingAZoomDragOnlyResumesTheTool)
{
    viewer.MeasureDistance();
    click({200, 100}); // (0, 0)
    viewer.ZoomWindow();
    QTest::mousePress(&viewer, Qt::LeftButton, Qt::NoModifier, {100, 50});
    QTest::mouseMove(&viewer, {300, 150});
    QTest::mouseRelease(&viewer, Qt::LeftButton, Qt::NoModifier, {300, 150}); // 40 pixels a degree
    EXPECT_EQ(viewer.currentTool(), 8);
    click({280, 100}); // (2, 0)
    viewer.ZoomIn();   // 80 pixels a degree
    // The line entered so far is drawn where the new view puts it.
    EXPECT_EQ(viewer.grab().toImage().pixel(280, 100), 0xFF000000);
    click({360, 20});  // (2, 1)
    EXPECT_EQ(resume(), "Total distance: 3 m.");
}

TEST_F(ViewerTools, EscapeEndsMeasuringAndCancelTypesIt)
{
    QSignalSpy keys(&viewer, &Viewer::KeyPress);
    viewer.MeasureDistance();
    click({200, 100});
    choose("mnuCancelElement");
    EXPECT_EQ(viewer.currentTool(), 0);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys.front().front().toInt(), 27);
    EXPECT_EQ(viewer.statusText(), "");
}

// Confirmed, the directions tool picks on the layer; cancelled, nothing changes.
TEST_F(ViewerTools, SetDirectionsSelectsItsToolOnlyWhenConfirmed)
{
    addLayer(7, polylinelayer, 0);
    ui.queueDialog({"dlgSetDirections", {}, "CancelButton"});
    viewer.SetDirections(7);
    EXPECT_EQ(viewer.currentTool(), 0);
    ui.queueDialog({"dlgSetDirections", {}, "OKButton"});
    viewer.SetDirections(7);
    EXPECT_EQ(viewer.currentTool(), 20);
    EXPECT_EQ(ui.dialogs().size(), 2u);
}

} // namespace
