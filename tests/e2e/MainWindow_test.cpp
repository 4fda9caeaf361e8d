#include "orbelan-viewer/MainWindow.h"
#include "model/Layers.h"
#include "ui/ScriptedUiServices.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
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

TEST(MainWindow, TheMapMenuOffersTheControlsCommandsButNoQueries)
{
    auto* viewer = new orbelan::Viewer;
    viewer->setUserMode(false);
    orbelan::ScriptedUiServices ui;
    orbelan::MainWindow window(viewer, ui);
    const auto menus = window.menuBar()->findChildren<QMenu*>();
    const auto map = std::find_if(menus.begin(), menus.end(),
                                  [](const QMenu* menu) { return menu->title() == "&Map"; });
    ASSERT_NE(map, menus.end());
    const QStringList entries = entriesOf(**map);
    for (const char* command : {"About", "ZoomIn", "ZoomOut", "ZoomExtents", "ZoomWindow", "Pan", "Redraw"}) {
        EXPECT_TRUE(entries.contains(command)) << command;
    }
    EXPECT_FALSE(entries.contains("CurrentZoom"));
    EXPECT_FALSE(entries.contains("SetView"));
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

} // namespace
