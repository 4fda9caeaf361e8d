// Map setup: the dialog's records and lines, and a scripted run on a shown
// Viewer applied to its layers and drawing.

#include "ShownViewer.h"

#include "configuration/LayerSetupRecords.h"
#include "configuration/dlgMapSetup.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <QSignalSpy>

#include <limits>

using namespace orbelan;

namespace {

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;

std::vector<std::int32_t> order(const Layers& layers)
{
    std::vector<std::int32_t> ids;
    for (const layer& each : layers) {
        ids.push_back(each.IDLayer);
    }
    return ids;
}

// Three overlapping squares: layer 1 red under layer 2 green under layer 3 blue.
class MapSetupRun : public ShownViewer {
protected:
    MapSetupRun()
    {
        const std::int32_t colors[] = {0x0000FF, 0x00FF00, 0xFF0000};
        for (std::int32_t id = 1; id <= 3; ++id) {
            layer& square = addLayer(id, polygonlayer, colors[id - 1]);
            square.Nombre = "layer " + std::to_string(id);
            square.ZoomMax = 5000;
            square.AccessLevel = static_cast<CONSTACCESSLEVEL>(id);
            addRectangle(square, 1, -4, -4, 4, 4);
        }
        viewer.Redraw();
    }

    void script(QMap<QString, QString> fields, const QString& button)
    {
        ui.queueDialog({"dlgMapSetup", std::move(fields), button});
    }
    QRgb middle() { return viewer.grab().toImage().pixel(200, 100); }
};

TEST_F(MapSetupRun, ListsTheTopLayerFirstWithRangeAccessAndDropMark)
{
    std::vector<CLayerSetupDef> records = layerSetupRecords(viewer.Layers());
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].IDLayer, 3);
    EXPECT_EQ(records[0].Order, 3);
    EXPECT_EQ(records[2].IDLayer, 1);
    EXPECT_EQ(layerSetupLine(records[0]), "layer 3 ( 0 - 5000)  Draw, ");
    EXPECT_EQ(layerSetupLine(records[1]), "layer 2 ( 0 - 5000)  Editor, ");
    records[2].Dropped = true;
    records[2].ZoomMin = 0.25f;
    records[2].AccessLevel = ALNoAccess;
    EXPECT_EQ(layerSetupLine(records[2]), "layer 1 ( 0.25 - 5000)  No Accesss, Dropped");
    records[2].AccessLevel = static_cast<CONSTACCESSLEVEL>(7);
    EXPECT_EQ(layerSetupLine(records[2]), "layer 1 ( 0.25 - 5000) Dropped");
}

TEST_F(MapSetupRun, ConfirmedDialogReordersDropsAndSetsRangesAndVisibility)
{
    ASSERT_EQ(middle(), kBlue);
    // The list: 3, 2, 1. Layer 1 goes to the top, 2 is dropped and restored,
    // 3 is dropped; 1 gets a typed range, 2 every height and "Auto".
    script({{"lstLayers", "2"}}, "cmdMoveUpLayer");
    script({}, "cmdMoveUpLayer");
    script({{"lstLayers", "2"}}, "cmdDropLayer");
    script({}, "cmdDropLayer");
    script({{"lstLayers", "1"}}, "cmdDropLayer");
    script({{"lstLayers", "0"}, {"txtZoomMin", "1.5"}, {"txtZoomMax", "30"}}, "cmdModifyLayer");
    script({{"lstLayers", "2"}}, "SetZoomAlways");
    script({{"cboUserVisibility", "Auto"}}, "OKButton");
    QSignalSpy redrawn(&viewer, &Viewer::MapRedrawn);
    viewer.MapSetup();

    EXPECT_EQ(ui.queuedDialogs(), 0u);
    ASSERT_EQ(order(viewer.Layers()), (std::vector<std::int32_t>{2, 1}));
    const layer& top = *viewer.Layers().Find(1);
    EXPECT_EQ(top.ZoomMin, 1.5f);
    EXPECT_EQ(top.ZoomMax, 30.0f);
    EXPECT_EQ(top.UserVisibility(), 2);
    const layer& under = *viewer.Layers().Find(2);
    EXPECT_EQ(under.ZoomMin, 0.0f);
    EXPECT_EQ(under.ZoomMax, 99999.0f);
    EXPECT_EQ(under.UserVisibility(), 1);
    EXPECT_EQ(redrawn.size(), 1);
    EXPECT_EQ(middle(), kRed);
}

TEST_F(MapSetupRun, FirstLineCannotMoveUpNorLastDownAndCancelChangesNothing)
{
    QSignalSpy errors(&viewer, &Viewer::errorOccurred);
    script({{"lstLayers", "0"}}, "cmdMoveUpLayer");
    viewer.MapSetup();
    script({{"lstLayers", "2"}}, "cmdMoveDownLayer");
    viewer.MapSetup();
    EXPECT_EQ(errors.size(), 2);

    script({{"lstLayers", "2"}}, "cmdMoveUpLayer");
    script({{"lstLayers", "1"}}, "cmdDropLayer");
    script({}, "CancelButton");
    QSignalSpy redrawn(&viewer, &Viewer::MapRedrawn);
    viewer.MapSetup();
    EXPECT_EQ(order(viewer.Layers()), (std::vector<std::int32_t>{1, 2, 3}));
    EXPECT_EQ(redrawn.size(), 0);
}

TEST_F(MapSetupRun, ChosenBackgroundColourClearsTheMap)
{
    script({}, "cmdBackColor");
    ui.queueDialog({"dlgColor", {{"txtColor", "#ff0000"}}, "OKButton"});
    script({}, "OKButton");
    viewer.MapSetup();
    EXPECT_EQ(viewer.BackgroundColor(), 0x0000FFu);
    EXPECT_EQ(viewer.grab().toImage().pixel(20, 20), kRed);
    EXPECT_EQ(middle(), kBlue);
}

TEST_F(MapSetupRun, TheCurrentViewMadeInitialIsWhereZoomToExtentsReturns)
{
    viewer.SetView(-3, -2, 1, 0);
    const BoundingBox chosen = viewer.viewport().viewBox();
    script({}, "cmdSetInitialHeight");
    script({}, "OKButton");
    viewer.MapSetup();
    viewer.SetView(-10, -5, 10, 5);
    viewer.ZoomExtents();
    const BoundingBox shown = viewer.viewport().viewBox();
    EXPECT_NEAR(shown.MinX, chosen.MinX, 1e-9);
    EXPECT_NEAR(shown.MaxY, chosen.MaxY, 1e-9);
}

TEST(dlgMapSetup, ZoomBoxesTakeACommaAsThePointAndHoldHugeNumbersToASingle)
{
    ScriptedUiServices ui;
    dlgMapSetup dialog({.layers = {{.Nombre = "calles", .IDLayer = 7, .ZoomMax = 10}}}, ui);
    auto* zoomMin = dialog.findChild<QLineEdit*>("txtZoomMin");
    ASSERT_NE(zoomMin, nullptr);
    dialog.findChild<QListWidget*>("lstLayers")->setCurrentRow(0);
    EXPECT_EQ(zoomMin->text().toStdString(), "0");
    zoomMin->clear();
    QTest::keyClicks(zoomMin, "2,5,7");
    EXPECT_EQ(zoomMin->text().toStdString(), "2.57");

    // A number beyond a Single's range is held to it.
    dialog.findChild<QLineEdit*>("txtZoomMax")->setText(QString(40, '9'));
    dialog.findChild<QPushButton*>("cmdModifyLayer")->click();
    EXPECT_EQ(dialog.settings().layers[0].ZoomMin, 2.57f);
    EXPECT_EQ(dialog.settings().layers[0].ZoomMax, std::numeric_limits<float>::max());
    EXPECT_EQ(dialog.findChild<QListWidget*>("lstLayers")->item(0)->text().toStdString(),
              "calles ( 2.57 - 3.402823e+38)  No Accesss, ");
}

} // namespace
