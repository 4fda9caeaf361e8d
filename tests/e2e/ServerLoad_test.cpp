#include "render/OleColor.h"
#include "ui/ScriptedUiServices.h"
#include "model/Layers.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

using namespace orbelan;

namespace {

const QString kServer = QStringLiteral(ORBELAN_SERVER_PROGRAM);
const QString kViewer = QStringLiteral(ORBELAN_VIEWER_PROGRAM);
constexpr int kProgramMilliseconds = 120'000;
constexpr int kLoadMilliseconds = 30'000;
// The demo's administrator draws on every layer of Santiago.
constexpr std::int32_t kAdministrator = 1;
constexpr std::int32_t kSantiago = 1;

// Shows Santiago to the administrator and waits until every reply is in.
bool showMap(Viewer& viewer, ScriptedUiServices& ui, quint16 port)
{
    viewer.setUiServices(ui);
    viewer.resize(640, 480);
    viewer.setURL(QStringLiteral("127.0.0.1"));
    viewer.setPort(port);
    viewer.setIDUser(kAdministrator);
    viewer.setMapCode(kSantiago);
    viewer.show();
    return QTest::qWaitFor([&] { return viewer.layerscargados() && viewer.PendingRequests() == 0; },
                           kLoadMilliseconds);
}

// orbelan-server serving the Santiago demo map from a store of its own.
class DemoServer : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        const QString store = folder.filePath(QStringLiteral("demo.sqlite"));
        QProcess demo;
        demo.start(kServer, {"demo", "--db", store, "--offline", "--data", folder.path()});
        ASSERT_TRUE(demo.waitForFinished(kProgramMilliseconds));
        ASSERT_EQ(demo.exitCode(), 0) << demo.readAll().toStdString();
        serve(0);
        ASSERT_NE(port, 0);
    }

    void TearDown() override { stop(); }

    // Starts serving the store on the port (0: a free one) and learns the port.
    void serve(quint16 wanted)
    {
        server.setProcessChannelMode(QProcess::MergedChannels);
        // The viewers here are given a user id and do not log in: the
        // server believes it.
        server.start(kServer, {"serve", "--db", folder.filePath(QStringLiteral("demo.sqlite")), "--port",
                               QString::number(wanted), "--trust-user-ids"});
        const QRegularExpression listening(QStringLiteral("listening on 127\\.0\\.0\\.1:(\\d+)"));
        QString log;
        port = 0;
        while (port == 0 && server.waitForReadyRead(kProgramMilliseconds)) {
            log += QString::fromUtf8(server.readAll());
            if (const auto found = listening.match(log); found.hasMatch()) {
                port = static_cast<quint16>(found.captured(1).toUInt());
            }
        }
        EXPECT_NE(port, 0) << log.toStdString();
    }

    void stop()
    {
        server.kill();
        server.waitForFinished();
    }

    bool showLoaded() { return showMap(viewer, ui, port); }

    // Zooms to a few blocks of the centre and waits for their cells.
    static constexpr const char* kCentre = "-70.67 -33.46 -70.66 -33.452";
    bool zoomToTheCentre()
    {
        viewer.SetView(-70.67, -33.46, -70.66, -33.452);
        return QTest::qWaitFor([&] { return viewer.isIdle(); }, kLoadMilliseconds);
    }

    QTemporaryDir folder;
    QProcess server;
    quint16 port = 0;
    ScriptedUiServices ui;
    Viewer viewer;
};

int entitiesOf(const Layers& layers)
{
    int entities = 0;
    for (const layer& mapLayer : layers) {
        entities += mapLayer.Entidades.count();
    }
    return entities;
}

// With the server gone each pan tells the failure once, forgets its requests
// and keeps the map drawn; once the server is back on its port, a pan asks for
// access again and then for the new cells.
TEST_F(DemoServer, TheSessionSurvivesTheServerGoingAwayAndComingBack)
{
    ASSERT_TRUE(showLoaded());
    ASSERT_TRUE(zoomToTheCentre());
    const layer& parcels = *viewer.Layers().Find(102);
    const int loaded = entitiesOf(viewer.Layers());
    const int layers = viewer.Layers().count();
    const quint16 servedOn = port;
    stop();
    // Lets the control see its connection close.
    QTest::qWait(200);
    // East onto new cells, back to the loaded centre (nothing to ask), west
    // onto new cells: one failure message for each view that asked.
    const std::array<std::pair<double, std::size_t>, 3> pans = {{{-70.65, 1}, {-70.67, 1}, {-70.70, 2}}};
    for (const auto& [west, messages] : pans) {
        viewer.SetView(west, -33.46, west + 0.01, -33.452);
        QTest::qWait(10);
        EXPECT_EQ(ui.messages().size(), messages) << west;
        EXPECT_EQ(viewer.PendingRequests(), 0);
        EXPECT_EQ(viewer.statusText(), "");
        if (west == -70.67) {
            EXPECT_FALSE(parcels.DrawnIDs().empty());
        }
    }
    EXPECT_TRUE(ui.messages().back().text.startsWith("Error: Unable to connect to map server."));

    serve(servedOn);
    ASSERT_EQ(port, servedOn);
    // The west view asked in vain while the server was away: now it loads.
    viewer.SetView(-70.70, -33.46, -70.69, -33.452);
    ASSERT_TRUE(QTest::qWaitFor([&] { return viewer.isIdle(); }, kLoadMilliseconds));
    EXPECT_GT(entitiesOf(viewer.Layers()), loaded);
    EXPECT_EQ(viewer.Layers().count(), layers);
    EXPECT_EQ(ui.messages().size(), 2u);
    EXPECT_EQ(viewer.statusText(), "");

    // Hidden, the control lets the map go; shown again, it loads it anew.
    viewer.hide();
    EXPECT_EQ(viewer.Layers().count(), 0);
    ASSERT_TRUE(showLoaded());
    EXPECT_EQ(viewer.Layers().count(), layers);
}

// The relief the demo wrote beside its store covers the city under the
// streets; a folder without it leaves the layer without image.
TEST_F(DemoServer, TheShadedReliefDrawsFromTheFolderTheDemoWroteItTo)
{
    viewer.setImagePath(folder.filePath(QStringLiteral("demo-images")));
    ASSERT_TRUE(showLoaded());
    const layer& relief = *viewer.Layers().Find(104);
    EXPECT_EQ(relief.Tipo, ImageLayer);
    EXPECT_TRUE(viewer.RendererExists(relief.ImageNumber));
    for (const std::int32_t id : {101, 102, 103}) {
        viewer.Layers().Find(id)->setUserVisibility(0);
    }
    const auto coloured = [this] {
        viewer.Redraw();
        const QImage picture = viewer.grab().toImage();
        const QColor background = QColor::fromRgb(qRgb(250, 250, 245));
        int count = 0;
        for (int y = 0; y < picture.height(); y += 4) {
            for (int x = 0; x < picture.width(); x += 4) {
                count += picture.pixelColor(x, y) != background ? 1 : 0;
            }
        }
        return count * 16.0 / (picture.width() * picture.height());
    };
    EXPECT_GT(coloured(), 0.8);
    viewer.setImagePath(folder.path());
    EXPECT_LT(coloured(), 0.02);
}

// The whole city is too far out for street names; at street level the
// streets get them, and their one-way directions once direction marks are on.
TEST_F(DemoServer, AtStreetLevelTheStreetsGetTheirNamesAndDirections)
{
    ASSERT_TRUE(showLoaded());
    layer& streets = *viewer.Layers().Find(101);
    ASSERT_EQ(streets.DirectionField, "DIR");
    EXPECT_FALSE(streets.lblVisible);
    streets.setUserDirectionVisibility(2);
    ASSERT_TRUE(zoomToTheCentre());
    EXPECT_TRUE(streets.lblVisible);
    EXPECT_GT(streets.Labels().count(), 3);
    std::set<std::int16_t> directions;
    for (const std::int32_t id : streets.DrawnIDs()) {
        directions.insert(streets.Entidades.Find(id)->Direction);
    }
    EXPECT_EQ(directions, (std::set<std::int16_t>{-1, 0, 1}));
    EXPECT_TRUE(streets.DirectionVisible);
}

// The pixel of a point in degrees.
QPoint pixelOf(const Viewport& view, const Vertex& point)
{
    MapPoint plane;
    view.project(point.X, point.Y, plane);
    return {static_cast<int>(std::lround(view.WorldToScreenX(plane.x))),
            static_cast<int>(std::lround(view.WorldToScreenY(plane.y)))};
}

// The parcels of a block come one after another: south-west, south-east,
// north-west, north-east, each a ring from its south-west corner, all four
// meeting at the block's middle. The first of the first block wholly in the
// picture, or 0.
std::int32_t firstBlockInView(const layer& parcels, const Viewport& view, QRect picture)
{
    const auto inPicture = [&](const Vertex& point) { return picture.contains(pixelOf(view, point)); };
    for (const std::int32_t id : parcels.DrawnIDs()) {
        std::array<const Entidad*, 4> block{};
        for (std::size_t k = 0; k < block.size(); ++k) {
            block[k] = parcels.Entidades.Find(id + static_cast<std::int32_t>(k));
        }
        const bool whole = id % 4 == 1 && std::ranges::all_of(block, [&](const Entidad* parcel) {
            return parcel && parcel->UboundPoints() == 5 && std::ranges::all_of(parcel->Points(), inPicture);
        });
        if (whole) {
            return id;
        }
    }
    return 0;
}

// Three parcels of a block (all but the north-east one) selected through the
// headless host by an L-shaped polygon around them, every vertex inside: the
// host prints their IDs, and its snapshot shows them highlighted.
TEST_F(DemoServer, TheHeadlessHostSelectsThreeParcelsByAPolygon)
{
    ASSERT_TRUE(showLoaded());
    ASSERT_TRUE(zoomToTheCentre());
    ASSERT_NE(viewer.Layers().Find(102), nullptr);
    const layer& parcels = *viewer.Layers().Find(102);
    const Viewport& view = viewer.viewport();
    const std::int32_t first = firstBlockInView(parcels, view, viewer.rect().adjusted(20, 20, -20, -20));
    ASSERT_NE(first, 0);
    const auto corner = [&](std::int32_t parcel, std::size_t k, QPoint outwards) {
        return pixelOf(view, parcels.Entidades.Find(first + parcel)->Points()[k]) + outwards * 4;
    };
    const std::array<QPoint, 6> polygon = {corner(0, 0, {-1, 1}), corner(1, 1, {1, 1}),  corner(1, 2, {1, -1}),
                                           corner(0, 2, {1, -1}),  corner(2, 2, {1, -1}), corner(2, 3, {-1, -1})};
    const auto middle = [&](std::int32_t parcel) {
        return pixelOf(view, parcels.Entidades.Find(first + parcel)->Centroide());
    };

    QProcess host;
    host.start(kViewer, {"--headless", "--settings", folder.filePath("viewer.ini"), "--url", "127.0.0.1", "--port",
                         QString::number(port), "--user", "1", "--map", "1", "--size", "640x480"});
    QString output;
    while (!output.contains("event MapLoaded") && host.waitForReadyRead(kLoadMilliseconds)) {
        output += QString::fromUtf8(host.readAllStandardOutput());
    }
    QString script = QStringLiteral("wait-idle 30\nSetView %1\nwait-idle 30\nSelectObjects 102\n"
                                    "menu mnuWholeElementInside\n").arg(kCentre);
    for (const QPoint vertex : polygon) {
        script += QStringLiteral("mouse click 1 %1 %2\n").arg(vertex.x()).arg(vertex.y());
    }
    const QString snapshot = folder.filePath("selected.png");
    script += QStringLiteral("menu mnuCerrarPline\nsnapshot %1\nmenu mnuEndSelection\nquit\n").arg(snapshot);
    host.write(script.toUtf8());
    ASSERT_TRUE(host.waitForFinished(kLoadMilliseconds));
    output += QString::fromUtf8(host.readAllStandardOutput());

    const QRegularExpression selection(QStringLiteral("event SelectionSet 102 3 \\[(\\d+),(\\d+),(\\d+)\\]"));
    const auto found = selection.match(output);
    ASSERT_TRUE(found.hasMatch()) << output.toStdString();
    const std::set<int> ids = {found.captured(1).toInt(), found.captured(2).toInt(), found.captured(3).toInt()};
    EXPECT_EQ(ids, (std::set<int>{first, first + 1, first + 2}));
    const QImage picture(snapshot);
    const QColor highlight = olecolor::toQColor(0xC0C000, viewer.palette());
    EXPECT_EQ(picture.pixelColor(middle(0)), highlight);
    EXPECT_NE(picture.pixelColor(middle(3)), highlight);
}

// The values of one parcel (roll number, use, area), learned from the server.
QStringList valuesOf(Viewer& viewer, std::int32_t parcel)
{
    QStringList values;
    const auto connection = QObject::connect(
        &viewer, &Viewer::InfoArrival,
        [&](int, int, const QStringList&, const QList<int>&, const QStringList& arrived) { values = arrived; });
    viewer.GetInfo(102, parcel, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !values.isEmpty(); }, kLoadMilliseconds));
    QObject::disconnect(connection);
    return values;
}

// One viewer picks a parcel by its roll number, changes its use in the
// information grid (tries a use, undoes it, applies another) and sends the
// update; both viewers of the map then hold the new use and draw its class
// without asking.
TEST_F(DemoServer, AnUpdateFromTheGridReachesEveryViewerOfTheMap)
{
    ASSERT_TRUE(showLoaded());
    ASSERT_TRUE(zoomToTheCentre());
    ScriptedUiServices secondUi;
    Viewer second;
    ASSERT_TRUE(showMap(second, secondUi, port));
    second.SetView(-70.67, -33.46, -70.66, -33.452);
    ASSERT_TRUE(QTest::qWaitFor([&] { return second.isIdle(); }, kLoadMilliseconds));
    const layer& parcels = *viewer.Layers().Find(102);
    ASSERT_FALSE(parcels.DrawnIDs().empty());
    const std::int32_t parcel = parcels.DrawnIDs().front();
    const QString roll = valuesOf(viewer, parcel).value(0);
    ASSERT_FALSE(roll.isEmpty());
    const QString newUse = parcels.Entidades.Find(parcel)->ThemeValue == "Industrial" ? QStringLiteral("Comercial")
                                                                                       : QStringLiteral("Industrial");

    ui.queueDialog({"dlgSelect", {{"optNoPol", "1"}}, "OKButton"});
    ui.queueDialog({"dlgShowInfoElements", {{"grdInfoElements", "0,2,dblclick"}, {"txtValue", "Educación"}}, "cmdOK"});
    ui.queueDialog({"dlgShowInfoElements", {}, "UndoUpdate"});
    ui.queueDialog({"dlgShowInfoElements", {{"grdInfoElements", "0,2,dblclick"}, {"txtValue", newUse}}, "cmdOK"});
    ui.queueDialog({"dlgShowInfoElements", {}, "cmdUpdate"});
    viewer.MultipleSelect(false, 0, 0, 102, {"ROL"}, {1}, {roll}, {""});
    for (Viewer* each : {&viewer, &second}) {
        const layer& held = *each->Layers().Find(102);
        EXPECT_TRUE(QTest::qWaitFor([&] { return held.Entidades.Find(parcel)->ThemeValue == newUse.toStdString(); },
                                    kLoadMilliseconds));
        const Theme& theme = *held.ThematicMap().Item(held.Entidades.Find(parcel)->ThemeCode);
        EXPECT_EQ(theme.min, newUse.toStdString());
    }
    EXPECT_EQ(valuesOf(second, parcel).value(1), newUse);
    EXPECT_EQ(ui.queuedDialogs(), 0u);
}

// A user restyles the parcels by land use: the dialog asks the server for
// the distinct values, opens again with them, and on OK the layer has one
// class per value, grey from black to white, each parcel in its own. Then
// by ranges of area, from the server's minimum and maximum.
TEST_F(DemoServer, LayerSetupClassifiesTheParcelsByTheServersStatistics)
{
    ASSERT_TRUE(showLoaded());
    ASSERT_TRUE(zoomToTheCentre());
    ui.queueDialog({"dlgLayerSetup",
                    {{"cbThemeField", "USO"}, {"cbThemeMethod", "1"}, {"shpColor0", "#000000"}, {"ShpColor1", "#ffffff"}},
                    "cmdQrySvr"});
    ui.queueDialog({"dlgLayerSetup", {}, "OKButton"});
    viewer.LayerSetup(102);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ui.queuedDialogs() == 0 && viewer.isIdle(); }, kLoadMilliseconds));
    ASSERT_EQ(ui.dialogs().size(), 2u);

    const layer& parcels = *viewer.Layers().Find(102);
    const ThematicMap& classes = parcels.ThematicMap();
    ASSERT_GE(classes.count(), 4);
    EXPECT_EQ(classes.Item(1)->min, "MICanyMIC");
    EXPECT_EQ(classes.Item(2)->FillColor, 0x000000);
    EXPECT_EQ(classes.Item(classes.count())->FillColor, 0xFFFFFF);
    std::set<std::string> values;
    for (int position = 2; position <= classes.count(); ++position) {
        EXPECT_TRUE(values.insert(classes.Item(position)->min).second);
        EXPECT_EQ(classes.Item(position)->max, classes.Item(position)->min);
    }
    ASSERT_FALSE(parcels.DrawnIDs().empty());
    for (const std::int32_t id : parcels.DrawnIDs()) {
        const Entidad& parcel = *parcels.Entidades.Find(id);
        EXPECT_TRUE(values.contains(parcel.ThemeValue)) << parcel.ThemeValue;
        EXPECT_EQ(classes.Item(parcel.ThemeCode)->min, parcel.ThemeValue);
    }

    // By area in four ranges: the areas are asked for anew and each parcel
    // falls in the range that holds it.
    ui.queueDialog({"dlgLayerSetup", {{"cbThemeField", "AREA"}, {"cbThemeMethod", "2"}, {"cbQtyClasses", "4"}},
                    "cmdQrySvr"});
    ui.queueDialog({"dlgLayerSetup", {}, "OKButton"});
    viewer.LayerSetup(102);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ui.queuedDialogs() == 0 && viewer.isIdle(); }, kLoadMilliseconds));
    ASSERT_EQ(classes.count(), 5);
    EXPECT_EQ(parcels.ThematicField, "AREA");
    for (const std::int32_t id : parcels.DrawnIDs()) {
        const Entidad& parcel = *parcels.Entidades.Find(id);
        ASSERT_FALSE(parcel.ThemeValue.empty()) << id;
        const double area = std::stod(parcel.ThemeValue);
        ASSERT_GE(parcel.ThemeCode, 2) << area;
        EXPECT_LE(std::stod(classes.Item(parcel.ThemeCode)->min), area);
        EXPECT_GE(std::stod(classes.Item(parcel.ThemeCode)->max), area);
    }
}

} // namespace
