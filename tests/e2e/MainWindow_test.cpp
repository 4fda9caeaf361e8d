#include "orbelan-viewer/MainWindow.h"
#include "model/Layers.h"
#include "ui/ScriptedUiServices.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

QStringList entriesOf(const QMenu& menu)
{
    QStringList entries;
    for (const QAction* action : menu.actions()) {
        entries << action->text();
    }
    return entries;
}

const QMenu& menuTitled(const orbelan::MainWindow& window, const QString& title)
{
    const auto menus = window.menuBar()->findChildren<QMenu*>();
    const auto found = std::find_if(menus.begin(), menus.end(), [&](const QMenu* menu) { return menu->title() == title; });
    EXPECT_NE(found, menus.end()) << title.toStdString();
    return **found;
}

// Readable labels with the usual shortcuts; About under Help; the current tool checked.
TEST(MainWindow, TheMapMenuOffersTheControlsCommandsButNoQueries)
{
    auto* viewer = new orbelan::Viewer;
    viewer->setUserMode(false);
    orbelan::ScriptedUiServices ui;
    orbelan::MainWindow window(viewer, ui);
    const QMenu& map = menuTitled(window, "&Map");
    const QStringList entries = entriesOf(map);
    for (const char* command : {"Zoom In", "Zoom Out", "Zoom to Extents", "Zoom Window", "Pan", "Redraw",
                                "Show Map References"}) {
        EXPECT_TRUE(entries.contains(command)) << command;
    }
    EXPECT_FALSE(entries.contains("About"));
    EXPECT_TRUE(entriesOf(menuTitled(window, "&Help")).join(' ').contains("About"));
    EXPECT_FALSE(entries.contains("Current Zoom"));
    EXPECT_FALSE(entries.contains("Set View"));

    const auto action = [&map](const char* label) {
        const QList<QAction*> actions = map.actions();
        return *std::find_if(actions.begin(), actions.end(), [&](const QAction* a) { return a->text() == label; });
    };
    EXPECT_TRUE(action("Zoom to Extents")->shortcuts().contains(QKeySequence(QStringLiteral("Ctrl+0"))));
    EXPECT_TRUE(action("Zoom Out")->shortcuts().contains(QKeySequence(QStringLiteral("-"))));
    EXPECT_TRUE(action("Redraw")->shortcuts().contains(QKeySequence(QStringLiteral("F5"))));
    viewer->Pan();
    EXPECT_TRUE(action("Pan")->isChecked());
    action("Measure Distance")->trigger();
    EXPECT_EQ(viewer->currentTool(), 8);
    EXPECT_TRUE(action("Measure Distance")->isChecked());
    EXPECT_FALSE(action("Pan")->isChecked());
}

// The button of the current tool is the one pressed, whoever chose the tool.
TEST(MainWindow, TheToolBarFollowsTheCurrentTool)
{
    auto* viewer = new orbelan::Viewer;
    viewer->setUserMode(false);
    orbelan::ScriptedUiServices ui;
    orbelan::MainWindow window(viewer, ui);
    const QList<QAction*> buttons = window.findChild<QToolBar*>("tbTools")->actions();
    ASSERT_EQ(buttons.size(), 7);
    buttons[3]->trigger();
    EXPECT_EQ(viewer->currentTool(), 8);
    viewer->Pan();
    EXPECT_TRUE(buttons[2]->isChecked());
    EXPECT_FALSE(buttons[3]->isChecked());
    // Selection works on the first polygon layer.
    viewer->Layers().AddLayer("roads", 3, orbelan::polylinelayer, viewer->viewport());
    viewer->Layers().AddLayer("parcels", 4, orbelan::polygonlayer, viewer->viewport());
    QSignalSpy selections(viewer, &orbelan::Viewer::SelectionSet);
    buttons[4]->trigger();
    viewer->findChild<QAction*>("mnuEndSelection")->trigger();
    ASSERT_EQ(selections.size(), 1);
    EXPECT_EQ(selections.front().front().toInt(), 4);
}

// Query → Identify lists the map's layers; choosing one arms the information
// tool on it, whose click picks the element.
TEST(MainWindow, IdentifyOffersTheLayersAndArmsTheInformationTool)
{
    auto* viewer = new orbelan::Viewer;
    viewer->setUserMode(false);
    orbelan::ScriptedUiServices ui;
    orbelan::MainWindow window(viewer, ui);
    viewer->Layers().AddLayer("roads", 3, orbelan::polylinelayer, viewer->viewport()).AccessLevel =
        orbelan::ALViewer;
    viewer->Layers().AddLayer("relief", 5, orbelan::ImageLayer, viewer->viewport());
    auto* identify = window.findChild<QMenu*>("mnuIdentify");
    ASSERT_NE(identify, nullptr);
    emit identify->aboutToShow();
    EXPECT_EQ(entriesOf(*identify), QStringList{"roads"});
    identify->actions().front()->trigger();
    EXPECT_EQ(viewer->currentTool(), 4);
}

// While the control has the focus, plain - is its key (KeyDown 189), not the
// menu's shortcut, and the window zooms out on it.
TEST(MainWindow, MinusIsTheFocusedControlsKeyAndZoomsOut)
{
    auto* viewer = new orbelan::Viewer;
    viewer->setUserMode(false);
    orbelan::ScriptedUiServices ui;
    orbelan::MainWindow window(viewer, ui);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    viewer->setFocus();
    viewer->SetView(-1, -1, 1, 1);
    const double scale = viewer->viewport().scale();
    QSignalSpy keys(viewer, &orbelan::Viewer::KeyDown);
    QTest::keyClick(viewer, Qt::Key_Minus);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys.front().front().toInt(), 189);
    EXPECT_NE(viewer->viewport().scale(), scale);
}

} // namespace
