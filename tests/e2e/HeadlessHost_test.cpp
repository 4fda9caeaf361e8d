// The headless host in process, around a control whose map is built in the
// test: a lat/lon view 400 x 200 pixels of (-10, -5) to (10, 5).

#include "HeadlessHost.h"
#include "ScriptedUiServices.h"
#include "Viewer.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <vector>

using namespace orbelan;

namespace {

TEST(HeadlessHostToolTip, TheBoxComingIntoViewPrintsItsText)
{
    ScriptedUiServices ui;
    auto owned = std::make_unique<Viewer>();
    Viewer& viewer = *owned;
    viewer.setUiServices(ui);
    viewer.setUserMode(false);
    viewer.resize(400, 200);
    viewer.show();
    viewer.SetView(-10, -5, 10, 5);
    layer& parks = viewer.Layers().AddLayer("Parques", 3, polygonlayer, viewer);
    parks.AccessLevel = ALViewer;
    parks.setUserVisibility(2);
    parks.ThematicMap().Add(0, 1, 0x00FF00, 0x00FF00, 0, "MICanyMIC", "");
    parks.lblVisible = true;
    const std::vector<Vertex> ring = {{-9, -4}, {-1, -4}, {-1, 4}, {-9, 4}};
    parks.Entidades.AddEntity(1, ring, parks).IDLabel = parks.GetLabelIndex("Parque \"Central\"");
    viewer.Redraw();

    std::ostringstream out;
    HeadlessHost host(viewer, ui, out);
    QTemporaryDir folder;
    const QString commands = folder.filePath("commands.txt");
    std::ofstream(commands.toStdString()) << "SetToolTip 3 \"NOMBRE\"\nmouse move 0 40 50\n";
    ASSERT_TRUE(host.readFile(commands));
    EXPECT_TRUE(QTest::qWaitFor([&out] { return out.str().find("tooltip") != std::string::npos; }));
    EXPECT_EQ(out.str(), "event MousePosition -8 2.5\n"
                         "tooltip \"Etiqueta: Parque \\\"Central\\\"\"\n");
    // As in the program, the control goes while the host still watches it.
    owned.reset();
}

} // namespace
