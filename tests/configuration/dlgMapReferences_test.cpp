// The legend: which layers get a block, what each class row shows, and the
// heights, scrolling and tool bar of the window.

#include "configuration/dlgMapReferences.h"

#include "ShownViewer.h"

#include "model/MapDocument.h"
#include "view/Viewport.h"

#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollBar>

using namespace orbelan;

namespace {

TEST(LegendLayout, ATallLegendScrollsInAFixedWindowAndAShortOneDoesNot)
{
    const LegendLayout tall = LegendLayout::forTotal(9000);
    EXPECT_TRUE(tall.scrolls);
    EXPECT_EQ(tall.formHeight, 7800);
    EXPECT_EQ(tall.scrollMaximum, 6);
    EXPECT_EQ(tall.scrollStep, 1000);

    const LegendLayout limit = LegendLayout::forTotal(8000);
    EXPECT_FALSE(limit.scrolls);
    EXPECT_EQ(limit.formHeight, 8000);

    const LegendLayout shortOne = LegendLayout::forBlocks(2140);
    EXPECT_EQ(shortOne.totalHeight, 2500);
    EXPECT_FALSE(shortOne.scrolls);
    EXPECT_EQ(shortOne.scrollMaximum, 0);
    EXPECT_EQ(shortOne.scrollStep, 300);
    EXPECT_EQ(LegendLayout::forBlocks(0).totalHeight, 0);
}

class Legend : public ::testing::Test {
protected:
    Legend()
    {
        document.Nombre = "Santiago";
        document.BackgroundColor = 0xFFFFFF;
        view.MinX = -10;
        view.MinY = -10;
        view.MaxX = 10;
        view.MaxY = 10;
    }

    layer& addLayer(std::int32_t id, TipoLayer kind, double west, bool visible = true)
    {
        layer& added = document.addLayer("layer " + std::to_string(id), id, kind);
        added.Visible = visible;
        added.bb.Union(west, 0, west + 5, 5);
        added.ThematicMap().Add(0, 1, 0x000000, 0x000000, 1, "MICanyMIC", "");
        return added;
    }

    std::vector<QGroupBox*> shownFrames() const
    {
        std::vector<QGroupBox*> frames;
        for (auto* frame : legend.findChildren<QGroupBox*>("Frame1")) {
            if (frame->isVisibleTo(&legend)) {
                frames.push_back(frame);
            }
        }
        return frames;
    }

    Viewport parent;
    MapDocument document{parent};
    BoundingBox view;
    dlgMapReferences legend;
};

TEST_F(Legend, VisibleLayersInViewGetBlocksTopLayerFirstWithTheirClasses)
{
    layer& parcels = addLayer(1, polygonlayer, 0);
    parcels.ThematicType = 2;
    parcels.ThematicMap().Add(0, 1, 0x0000FF, 0x00FF00, 0, "0", "100");
    layer& streets = addLayer(2, polylinelayer, 0);
    streets.ThematicType = 1;
    streets.ThematicMap().Add(0, 3, 0xFF0000, 0, 0, "AV", "");
    addLayer(3, pointlayer, 0, false);
    addLayer(4, pointlayer, 20);

    legend.build(document, view, legend.palette());

    EXPECT_EQ(legend.windowTitle(), "Leyendas para: Santiago");
    EXPECT_EQ(legend.blocksBuilt(), 1);
    EXPECT_EQ(legend.rowsBuilt(), 3);
    const std::vector<QGroupBox*> frames = shownFrames();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0]->title(), "layer 2");
    EXPECT_EQ(frames[1]->title(), "layer 1");
    EXPECT_LT(frames[0]->geometry().bottom(), frames[1]->y());

    const auto texts = [](QGroupBox* frame) {
        QStringList shown;
        for (auto* label : frame->findChildren<QLabel*>("lblThemeDesc")) {
            shown << label->text();
        }
        return shown;
    };
    EXPECT_EQ(texts(frames[0]), (QStringList{"MICanyMIC", "AV"}));
    EXPECT_EQ(texts(frames[1]), (QStringList{"MICanyMIC to ", "0 to 100"}));

    // The class's fill in the middle of the polygon symbol, its pen across
    // the middle of the line symbol, the background around it.
    const QImage fill = frames[1]->findChildren<QLabel*>("picColor").at(1)->pixmap().toImage();
    EXPECT_EQ(fill.pixel(fill.width() / 2, fill.height() / 2), 0xFF00FF00);
    const QImage line = frames[0]->findChildren<QLabel*>("picColor").at(1)->pixmap().toImage();
    EXPECT_EQ(line.pixel(line.width() / 2, line.height() / 2), 0xFF0000FF);
    EXPECT_EQ(line.pixel(line.width() / 2, 0), 0xFFFFFFFF);
}

TEST_F(Legend, WithNothingInViewOnlyTheToolBarShows)
{
    addLayer(1, polygonlayer, 30);
    legend.build(document, view, legend.palette());
    EXPECT_EQ(legend.blocksBuilt(), -1);
    EXPECT_EQ(legend.rowsBuilt(), -1);
    EXPECT_TRUE(shownFrames().empty());
    EXPECT_EQ(legend.height(), legend.findChild<QWidget*>("Toolbar1")->height());
}

TEST_F(Legend, ATallLegendScrollsByItsStepAndCollapsesToItsToolBar)
{
    for (std::int32_t id = 1; id <= 3; ++id) {
        layer& many = addLayer(id, polygonlayer, 0);
        for (int row = 0; row < 10; ++row) {
            many.ThematicMap().Add(0, 1, 0, 0, 0, std::to_string(row), "");
        }
    }
    legend.build(document, view, legend.palette());
    const LegendLayout& layout = legend.layout();
    ASSERT_TRUE(layout.scrolls);
    EXPECT_EQ(legend.heightInTwips(), LegendLayout::kScrolledHeight);
    auto* scroll = legend.findChild<QScrollBar*>("VScroll1");
    EXPECT_TRUE(scroll->isVisibleTo(&legend));
    EXPECT_EQ(scroll->maximum(), layout.totalHeight / 1500);

    const int top = legend.blockTopInTwips(2);
    scroll->setValue(2);
    EXPECT_NEAR(legend.blockTopInTwips(2), top - 2 * layout.scrollStep, 15);
    scroll->setValue(1);
    EXPECT_NEAR(legend.blockTopInTwips(2), top - layout.scrollStep, 15);

    const int toolbar = legend.findChild<QWidget*>("Toolbar1")->height() * 1440 / legend.logicalDpiY();
    legend.minimise();
    EXPECT_NEAR(legend.heightInTwips(), toolbar + 300, 15);
    legend.maximise();
    EXPECT_EQ(legend.heightInTwips(), LegendLayout::kScrolledHeight);

    // A legend rebuilt short loses its scroll bar.
    document.Layers().RemoveKey(1);
    document.Layers().RemoveKey(2);
    legend.build(document, view, legend.palette());
    EXPECT_FALSE(scroll->isVisibleTo(&legend));
    EXPECT_EQ(scroll->value(), 0);
    EXPECT_EQ(legend.blockTopInTwips(0), 60);
}

TEST_F(Legend, CameraCopiesTheWindowToTheClipboard)
{
    addLayer(1, polygonlayer, 0);
    legend.build(document, view, legend.palette());
    QGuiApplication::clipboard()->setText("before");
    legend.copyToClipboard();
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), legend.size() * legend.devicePixelRatio());
    EXPECT_TRUE(QGuiApplication::clipboard()->text().isEmpty());
}

using LegendOfViewer = ShownViewer;

TEST_F(LegendOfViewer, ShownBuiltAgainHiddenAndClosedByTheViewer)
{
    layer& parcels = addLayer(1, polygonlayer, 0x0000FF);
    addRectangle(parcels, 1, -4, -2, 0, 2);
    viewer.Redraw();
    const auto legend = [this] { return viewer.findChild<dlgMapReferences*>("dlgMapReferences"); };
    viewer.RestoreMapReferences();
    EXPECT_EQ(legend(), nullptr);

    viewer.ShowMapReferences();
    ASSERT_NE(legend(), nullptr);
    EXPECT_TRUE(legend()->isVisible());
    EXPECT_EQ(legend()->rowsBuilt(), 0);
    // It opens over the map, not over whatever lies above it.
    EXPECT_TRUE(QRect(viewer.mapToGlobal(QPoint(0, 0)), viewer.size()).contains(legend()->pos()));

    parcels.ThematicMap().Add(0, 1, 0, 0, 0, "A", "");
    viewer.HideMapReferences();
    EXPECT_FALSE(legend()->isVisible());
    viewer.RestoreMapReferences();
    EXPECT_EQ(legend()->rowsBuilt(), 1);
    viewer.ShowMapReferences();
    EXPECT_TRUE(legend()->isVisible());

    viewer.TerminateMapReferences();
    EXPECT_EQ(legend(), nullptr);
    viewer.ShowMapReferences();
    EXPECT_NE(legend(), nullptr);
}

} // namespace
