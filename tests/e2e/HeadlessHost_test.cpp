// The headless host in process, around a control whose map is built in the
// test: a lat/lon view 400 x 200 pixels of (-10, -5) to (10, 5) with one
// layer of parks.

#include "orbelan-viewer/HeadlessHost.h"
#include "LoopbackServer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/ChangePasswordAnswer.h"
#include "protocol/messages/ChangePasswordRequest.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/messages/SaveMapAnswer.h"
#include "protocol/messages/SaveMapRequest.h"
#include "ui/ScriptedUiServices.h"
#include "model/Layers.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <optional>
#include <tuple>
#include <sstream>
#include <vector>

using namespace orbelan;

namespace {

class HeadlessHostTest : public ::testing::Test {
protected:
    HeadlessHostTest()
    {
        viewer.setUiServices(ui);
        viewer.setUserMode(false);
        viewer.resize(400, 200);
        viewer.show();
        viewer.SetView(-10, -5, 10, 5);
        parks.AccessLevel = ALViewer;
        parks.setUserVisibility(2);
        parks.ThematicMap().Add(0, 1, 0x00FF00, 0x00FF00, 0, "MICanyMIC", "");
        parks.lblVisible = true;
        const std::vector<Vertex> ring = {{-9, -4}, {-1, -4}, {-1, 4}, {-9, 4}};
        parks.Entidades.AddEntity(1, ring, parks).IDLabel = parks.GetLabelIndex("Parque \"Central\"");
        viewer.Redraw();
        host.emplace(viewer, ui, out);
    }

    // Runs the commands through the host's event loop turn.
    bool run(const char* lines)
    {
        const QString commands = folder.filePath("commands.txt");
        std::ofstream(commands.toStdString()) << lines;
        return host->readFile(commands);
    }

    ScriptedUiServices ui;
    std::unique_ptr<Viewer> owned = std::make_unique<Viewer>();
    Viewer& viewer = *owned;
    layer& parks = viewer.Layers().AddLayer("Parques", 3, polygonlayer, viewer.viewport());
    std::ostringstream out;
    std::optional<HeadlessHost> host;
    QTemporaryDir folder;
};

TEST_F(HeadlessHostTest, TheToolTipBoxComingIntoViewPrintsItsText)
{
    ASSERT_TRUE(run("SetToolTip 3 \"NOMBRE\"\nmouse move 0 40 50\n"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return out.str().find("tooltip") != std::string::npos; }));
    EXPECT_EQ(out.str(), "event MousePosition -8 2.5\n"
                         "tooltip \"Etiqueta: Parque \\\"Central\\\"\"\n");
    // As in the program, the control goes while the host still watches it.
    owned.reset();
}

TEST_F(HeadlessHostTest, LayerVisibilitySetsTheUsersLevelsAndRefusesWhatItCannotSet)
{
    ASSERT_TRUE(run("layer-visibility 3 labels 2\nlayer-visibility 3 directions 1\nlayer-visibility 3 geometry 0\n"
                    "layer-visibility 4 labels 2\nlayer-visibility 3 labels 3\nlayer-visibility 3 colour 1\n"));
    QCoreApplication::processEvents();
    EXPECT_EQ(parks.UserLabelVisibility(), 2);
    EXPECT_EQ(parks.UserDirectionVisibility(), 1);
    EXPECT_EQ(parks.UserVisibility(), 0);
    // The map was drawn again without the hidden parks.
    EXPECT_TRUE(parks.DrawnIDs().empty());
    const std::string refused = "error \"layer-visibility needs a layer, geometry|labels|directions and a level 0 to 2\"\n";
    const std::string redrawn = "event MapRedrawn\n";
    EXPECT_EQ(out.str(), redrawn + redrawn + redrawn + refused + refused +
                             "error \"layer-visibility: \\\"colour\\\" is not geometry, labels or directions\"\n");
}

// LayerSetup takes the layer id as a word; the scripted dialog's label and
// direction settings reach the layer.
TEST_F(HeadlessHostTest, LayerSetupAppliesTheScriptedDialog)
{
    ASSERT_TRUE(run("set layerscargados true\ndialog dlgLayerSetup cbLblVisible=On chkDirections=1 OKButton\n"
                    "LayerSetup 3\nLayerSetup parques\n"));
    QCoreApplication::processEvents();
    EXPECT_EQ(parks.UserLabelVisibility(), 2);
    EXPECT_EQ(parks.UserDirectionVisibility(), 1);
    EXPECT_NE(out.str().find("dialog dlgLayerSetup \"Configuración del Layer: Parques\"\n"), std::string::npos);
    EXPECT_NE(out.str().find("error \"LayerSetup: the layer id is not a number\"\n"), std::string::npos)
        << out.str();
}

// export takes the control's size and 96 dots per inch unless told; the
// generic call reaches the raster methods.
TEST_F(HeadlessHostTest, ExportWritesTheAskedSizeAndRefusesWhatItCannotWrite)
{
    const QString small = folder.filePath("small.png");
    const QString whole = folder.filePath("whole.png");
    const std::string lines = "export " + small.toStdString() + " 40x20 192\nexport " + whole.toStdString() +
                              "\nexport " + small.toStdString() + " 40by20\nexport map.gif\nLoadRasterFile none.tif\n";
    ASSERT_TRUE(run(lines.c_str()));
    QCoreApplication::processEvents();
    EXPECT_EQ(QImage(small).size(), QSize(40, 20));
    EXPECT_EQ(QImage(whole).size(), QSize(400, 200));
    EXPECT_EQ(out.str(), "error \"export needs FILE [WIDTHxHEIGHT] [DPI]\"\n"
                         "error \"ExportImage: the file name must end in .png or .pdf: map.gif\"\n"
                         "result -1\n");
}

// A dialog's script is queued before the menu item that opens it; the
// right click offers the end menu, whose "Resume" tells the length.
TEST_F(HeadlessHostTest, MenuItemsAndScriptedDialogsDriveAMeasurement)
{
    ASSERT_TRUE(run("MeasureDistance\ndialog dlgRelativeTo txtXCoord=2 OKButton\nmenu mnuRelativeTo\n"
                    "mouse click 1 40 30\nmenu mnuEndPoint\nmouse click 1 190 30\nmouse click 2 190 30\n"
                    "menu mnuCerrarPline\nmenu mnuSeparator\n"));
    QCoreApplication::processEvents();
    for (const char* line : {"dialog dlgRelativeTo \"Relative To\"\n", "event click\n",
                             "menu mnuEnd \"MenuEndPoint\"\n",
                             "msgbox none \"Orbelan Viewer\" \"Total distance: 6 m.\"\n",
                             "error \"menu needs an item of the control's menus\"\n"}) {
        EXPECT_NE(out.str().find(line), std::string::npos) << line;
    }
}

// EditInfo takes its values as FIELD=VALUE words; InfoArrival prints its
// arrays as lists.
TEST_F(HeadlessHostTest, EditInfoValuesAndTheInfoArrivalLine)
{
    parks.Campos().Add("NOMBRE", 202);
    ASSERT_TRUE(run("EditInfo 3 1 \"nombre=Bosque Alto\"\nEditInfo 3 1 AREA=2\nEditInfo 3\n"));
    QCoreApplication::processEvents();
    emit viewer.InfoArrival(3, 1, {"NOMBRE", "AREA"}, {202, 5}, {"Bosque", "2.5"});
    EXPECT_EQ(out.str(), "msgbox critical \"Orbelan\" \"Acceso Denegado\"\n"
                         "error \"EditInfo: layer 3 has no field \\\"AREA\\\"\"\n"
                         "error \"EditInfo needs a layer, an element and optional FIELD=VALUE pairs\"\n"
                         "event InfoArrival 3 1 [\"NOMBRE\",\"AREA\"] [202,5] [\"Bosque\",\"2.5\"]\n");
}

// login prints the answer in the list grammar and waits for it, whatever
// else is queued; ChangePassword is a method call that goes over the
// control's own connection as its user, and its answer is told.
TEST_F(HeadlessHostTest, LoginPrintsItsAnswerAndChangePasswordReachesTheServer)
{
    using namespace orbelan::messages;
    nettest::LoopbackServer loginServer;
    nettest::LoopbackServer mapServer;
    const auto bytesOf = [](const DWBUffer& message) {
        return Bytes(message.bytes().begin(), message.bytes().end());
    };
    loginServer.answerEachRequest({bytesOf(buildMessage(LoginAnswer{7, {}, {{1, "Santiago"}, {3, "Viña del Mar"}}}))});
    mapServer.answerEachRequest({bytesOf(buildMessage(ChangePasswordAnswer{0}))});
    viewer.setIDUser(7);
    viewer.setMapCode(2);
    const QString commands = QStringLiteral("login 127.0.0.1 %1 admin \"dos palabras\"\nlogin 127.0.0.1 x admin admin\n"
                                            "set URL 127.0.0.1\nset port %2\nChangePassword vieja nueva\n")
                                 .arg(loginServer.port())
                                 .arg(mapServer.port());
    ASSERT_TRUE(run(commands.toUtf8().constData()));
    ASSERT_TRUE(QTest::qWaitFor([this] { return out.str().find("msgbox") != std::string::npos; }));
    EXPECT_EQ(out.str(), "event LoginResponse 7 2 [\"Santiago\",\"Viña del Mar\"] [1,3]\n"
                         "error \"login needs HOST PORT USER PASSWORD\"\n"
                         "msgbox information \"Change Password\" \"Password succesfully changed\"\n");
    EXPECT_EQ(loginServer.received(0), bytesOf(buildMessage(LoginRequest{"admin", "dos palabras"})));
    Bytes expected = bytesOf(buildMessage(AccessRequest{7, 2}));
    const Bytes change = bytesOf(buildMessage(ChangePasswordRequest{7, "vieja", "nueva"}));
    expected.insert(expected.end(), change.begin(), change.end());
    ASSERT_TRUE(mapServer.waitForReceived(0, expected.size()));
    EXPECT_EQ(mapServer.received(0), expected);
}

// SaveMap is a method call that sends the control's map, as the user given
// and under the name given, over its own connection; the answer is told.
TEST_F(HeadlessHostTest, SaveMapSendsTheMapShownAndTellsTheAnswer)
{
    using namespace orbelan::messages;
    nettest::LoopbackServer mapServer;
    const DWBUffer answer = buildMessage(SaveMapAnswer{SaveMapAnswer::kSaved});
    mapServer.answerEachRequest({Bytes(answer.bytes().begin(), answer.bytes().end())});
    viewer.setMapCode(2);
    ASSERT_TRUE(run(QStringLiteral("set URL 127.0.0.1\nset port %1\nSaveMap 7 \"Mi mapa\"\n")
                        .arg(mapServer.port())
                        .toUtf8()
                        .constData()));
    ASSERT_TRUE(QTest::qWaitFor([this] { return out.str().find("msgbox") != std::string::npos; }));
    EXPECT_EQ(out.str(), "msgbox none \"Orbelan\" \"Mapa guardado con éxito!\"\n");

    const std::size_t accessSize = buildMessage(AccessRequest{0, 2}).bytes().size();
    ASSERT_TRUE(mapServer.waitForReceived(0, accessSize + 10));
    const Bytes received = mapServer.received(0);
    DWBUffer save(Bytes(received.begin() + static_cast<std::ptrdiff_t>(accessSize), received.end()));
    ASSERT_EQ(readHeader(save), CommandCode::SaveMap);
    const SaveMapRequest request = SaveMapRequest::decode(save);
    EXPECT_EQ(std::tuple(request.user, request.map, request.definition.name), std::tuple(7, 2, "Mi mapa"));
    ASSERT_EQ(request.layers.size(), 1u);
    EXPECT_EQ(request.layers[0].settings.id, 3);
}

} // namespace
