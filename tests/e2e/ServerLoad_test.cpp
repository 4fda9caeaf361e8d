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
        serve(store);
        ASSERT_NE(port, 0);
    }

    void TearDown() override
    {
        server.kill();
        server.waitForFinished();
    }

    // Starts serving the store on a free port and learns the port.
    void serve(const QString& store)
    {
        server.setProcessChannelMode(QProcess::MergedChannels);
        // The viewers here are given a user id and do not log in: the
        // server believes it.
        server.start(kServer, {"serve", "--db", store, "--port", "0", "--trust-user-ids"});
        const QRegularExpression listening(QStringLiteral("listening on 127\\.0\\.0\\.1:(\\d+)"));
        QString log;
        while (port == 0 && server.waitForReadyRead(kProgramMilliseconds)) {
            log += QString::fromUtf8(server.readAll());
            if (const auto found = listening.match(log); found.hasMatch()) {
                port = static_cast<quint16>(found.captured(1).toUInt());
            }
        }
        EXPECT_NE(port, 0) << log.toStdString();
    }

    // Shows Santiago to the administrator and waits until every reply is in.
    bool showLoaded()
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

// Hidden, the control lets the map go; shown again, it loads it anew.
TEST_F(DemoServer, HiddenTheControlLetsTheMapGoAndShownAgainLoadsItAnew)
{
    ASSERT_TRUE(showLoaded());
    const int layers = viewer.Layers().count();
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

    // A label field chosen for the parcels: their names in view are asked for.
    ui.queueDialog({"dlgLayerSetup", {{"cbLblField", "ROL"}, {"cbLblVisible", "On"}}, "OKButton"});
    viewer.LayerSetup(102);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ui.queuedDialogs() == 0 && viewer.isIdle(); }, kLoadMilliseconds));
    EXPECT_EQ(parcels.lblField, "ROL");
    EXPECT_NE(parcels.Entidades.Find(parcels.DrawnIDs().front())->IDLabel, 0);
}

} // namespace
