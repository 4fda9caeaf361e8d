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

    // Polygon layer 5, selectable: element 1 spans (1, 1) to (2, 2), element 2
    // (3, 1) to (5, 2).
    void addParcels()
    {
        layer& parcels = addLayer(5, polygonlayer, 0xFFFFFF);
        parcels.Selectable = true;
        addRectangle(parcels, 1, 1, 1, 2, 2);
        addRectangle(parcels, 2, 3, 1, 5, 2);
        viewer.Redraw();
    }

    // The layer, count and IDs of the one SelectionSet raised so far.
    static QList<int> selected(const QSignalSpy& selections)
    {
        if (selections.size() != 1) {
            return {};
        }
        const QList<QVariant>& event = selections.front();
        return QList<int>{event.at(0).toInt(), event.at(1).toInt()} + event.at(2).value<QList<int>>();
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

// The first right click picks one element at a time; an element picked again
// is there once, remove mode takes it out and is over with the selection.
TEST_F(ViewerTools, PicksAddOnceAndRemoveModeTakesOut)
{
    addParcels();
    QSignalSpy selections(&viewer, &Viewer::SelectionSet);
    viewer.SelectObjects(5);
    click({230, 70}, Qt::RightButton);
    ASSERT_EQ(ui.menus().size(), 1u);
    EXPECT_EQ(ui.menus().back().objectName, "mnuSelect");
    EXPECT_TRUE(viewer.findChild<QAction*>("mnuSelectIndividual")->isChecked());
    click({230, 70}); // element 1
    click({230, 70});
    click({280, 70}); // element 2
    choose("mnuRemoveElementsFromSelection");
    click({230, 70});
    choose("mnuEndSelection");
    EXPECT_EQ(selected(selections), (QList<int>{5, 1, 2}));
    EXPECT_EQ(viewer.currentTool(), 0);
    EXPECT_FALSE(viewer.findChild<QAction*>("mnuRemoveElementsFromSelection")->isChecked());
}

// A polygon over element 1 and two vertices of element 2 selects element 2
// only when one vertex inside is enough; after it, clicks pick one at a time.
TEST_F(ViewerTools, DrawnPolygonSelectsByItsContainmentRule)
{
    addParcels();
    for (const auto& [rule, expected] : {std::pair{"mnuWholeElementInside", QList<int>{5, 1, 1}},
                                         std::pair{"mnuOneVertex", QList<int>{5, 2, 1, 2}}}) {
        QSignalSpy selections(&viewer, &Viewer::SelectionSet);
        viewer.SelectObjects(5);
        choose(rule);
        for (const QPoint vertex : {QPoint(200, 100), QPoint(270, 100), QPoint(270, 40), QPoint(200, 40)}) {
            click(vertex); // (0, 0), (3.5, 0), (3.5, 3), (0, 3)
        }
        click({200, 40}, Qt::RightButton);
        EXPECT_EQ(ui.menus().back().objectName, "mnuEnd");
        choose("mnuCerrarPline");
        EXPECT_TRUE(viewer.findChild<QAction*>("mnuSelectIndividual")->isChecked());
        choose("mnuEndSelection");
        EXPECT_EQ(selected(selections), expected) << rule;
    }
}

// Far out, three pixels reach well beyond the layer's own tolerance. Escape
// ends a selection untold.
TEST_F(ViewerTools, APickReachesThreePixelsAndEscapeEndsTheSelection)
{
    layer& roads = addLayer(6, polylinelayer, 0);
    roads.Selectable = true;
    roads.Entidades.AddEntity(9, std::vector<Vertex>{{-5, 0}, {5, 0}}, roads);
    viewer.Redraw();
    QSignalSpy selections(&viewer, &Viewer::SelectionSet);
    for (const bool escape : {true, false}) {
        viewer.SelectObjects(6);
        click({200, 104}, Qt::RightButton);
        click({200, 104}); // 0.2 degrees off
        click({200, 102});
        if (escape) {
            QTest::keyClick(&viewer, Qt::Key_Escape);
        }
        choose("mnuEndSelection");
    }
    EXPECT_EQ(selected(selections), (QList<int>{6, 1, 9}));
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

// The polygon of a multiple selection: a pick that finds none is told and the
// dialog comes back; a drawn polygon around no element of the queried layer
// is told and nothing is asked.
TEST_F(ViewerTools, MultipleSelectionTellsAMissedPickAndAnEmptyPolygon)
{
    addParcels();
    layer& wells = addLayer(6, pointlayer, 0);
    wells.Entidades.AddEntity(7, std::vector<Vertex>{{1.5, 1.5}}, wells);
    viewer.Redraw();
    ui.queueDialog({"dlgSelect", {}, "cmdSelPol"});
    viewer.MultipleSelect(true, 5, 0, 6);
    EXPECT_EQ(viewer.currentTool(), 12);
    click({100, 150}); // (-5, -2.5)
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(ui.messages().back().text, "No se pudo seleccionar ningún polígono, Inténtelo Nuevamente!");
    EXPECT_EQ(ui.dialogs().size(), 2u);
    EXPECT_EQ(viewer.currentTool(), 0);

    ui.queueDialog({"dlgSelect", {}, "cmdDrawPol"});
    ui.queueDialog({"dlgSelect", {}, "OKButton"});
    viewer.MultipleSelect(false, 5, 0, 6);
    EXPECT_EQ(viewer.currentTool(), 13);
    for (const QPoint vertex : {QPoint(100, 140), QPoint(140, 140), QPoint(140, 120), QPoint(100, 120)}) {
        click(vertex);
    }
    choose("mnuCerrarPline");
    EXPECT_EQ(ui.messages().back().text, "No elements inside polygon");
    EXPECT_EQ(ui.dialogs().size(), 4u);
}

} // namespace
