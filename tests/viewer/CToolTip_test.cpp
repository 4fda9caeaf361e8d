// The map tooltip over the shown viewer. The tests play the sampling timer's
// ticks themselves, so none of them waits for it.
//
// At 96 DPI a pixel is 15 twips: the box hangs 290 twips = 19 pixels below
// the pointer, is 100 twips = 7 pixels wider and 50 twips = 3 pixels taller
// than its label, keeps 100 twips = 7 pixels from the right edge, and holds
// the label 50 twips = 3 pixels from its left side.

#include "ShownViewer.h"
#include "viewer/CToolTip.h"

#include <QLabel>
#include <QTest>
#include <QTimer>

using namespace orbelan;

namespace {

constexpr std::int32_t kStreets = 1;

class ToolTipTest : public ShownViewer {
protected:
    ToolTipTest()
    {
        streets.lblVisible = true;
        addRectangle(streets, 1, -9, -5, -1, 5).IDLabel = streets.GetLabelIndex("Calle Mayor"); // pixels 20..180
        addRectangle(streets, 2, 0.5, -5, 4.5, 5);                                               // pixels 210..290
        addRectangle(streets, 3, 6, -5, 10, 5).IDLabel = streets.GetLabelIndex("Plaza");         // pixels 320..400
        viewer.Redraw();
        tip.SetLayer(kStreets, "NOMBRE");
    }

    // The pointer comes to (x, y) and stays: two ticks, the first of which
    // takes the new sample.
    void restAt(float x, float y)
    {
        tip.mousemove(x, y);
        tip.timer();
        tip.timer();
    }

    layer& streets = addLayer(kStreets, polygonlayer, 0x0000FF);
    QTimer timer;
    QWidget box{&viewer};
    QLabel label{&box};
    CToolTip tip{viewer, viewer.viewport(), viewer.Layers(), timer, box, label};
};

TEST_F(ToolTipTest, TheLabelShowsOnceTwoSamplesAgree)
{
    tip.mousemove(40, 50);
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), CToolTip::kSampleMilliseconds);
    tip.mousemove(42, 50);
    tip.timer(); // moved since the sample: still moving
    EXPECT_TRUE(timer.isActive());
    EXPECT_FALSE(box.isVisible());
    tip.timer();
    EXPECT_FALSE(timer.isActive());
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(label.text(), "Etiqueta: Calle Mayor");
}

TEST_F(ToolTipTest, AMoveWhileSamplingHidesTheBoxAndTheNextRestShowsTheNewLabel)
{
    restAt(40, 50);
    tip.mousemove(330, 50); // idle: sampling starts, the box stays
    EXPECT_TRUE(box.isVisible());
    tip.mousemove(340, 50);
    EXPECT_FALSE(box.isVisible());
    tip.timer();
    tip.timer();
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(label.text(), "Etiqueta: Plaza");
}

TEST_F(ToolTipTest, AnEntityWithoutLabelShowsUndefined)
{
    restAt(250, 50);
    EXPECT_EQ(label.text(), "Etiqueta: <Undefined>");
    streets.Entidades.Find(2)->IDLabel = 99; // names no text
    restAt(250, 60);
    EXPECT_EQ(label.text(), "Etiqueta: <Undefined>");
}

TEST_F(ToolTipTest, NothingShowsWithoutALabelledLayerOrAnEntityUnderThePointer)
{
    restAt(200, 50); // between two entities
    EXPECT_FALSE(box.isVisible());
    streets.lblVisible = false;
    restAt(40, 50);
    EXPECT_FALSE(box.isVisible());
    streets.lblVisible = true;
    restAt(40, 50);
    ASSERT_TRUE(box.isVisible());
    tip.SetLayer(0, ""); // switches the tooltip off
    EXPECT_FALSE(box.isVisible());
    restAt(40, 60);
    EXPECT_FALSE(box.isVisible());
    EXPECT_FALSE(timer.isActive());
    tip.SetLayer(7, "NOMBRE"); // no such layer
    restAt(40, 50);
    EXPECT_FALSE(box.isVisible());
    EXPECT_FALSE(timer.isActive());
}

TEST_F(ToolTipTest, TheBoxHangsBelowThePointerInTheTooltipColourAndKeepsInsideTheEdges)
{
    ASSERT_EQ(viewer.logicalDpiX(), 96);
    ASSERT_EQ(viewer.logicalDpiY(), 96);
    restAt(40, 50);
    const QSize labelSize = label.size();
    EXPECT_EQ(label.pos(), QPoint(3, 0));
    EXPECT_EQ(box.geometry(), QRect(40, 69, labelSize.width() + 7, labelSize.height() + 3));
    const QImage shown = viewer.grab().toImage();
    EXPECT_EQ(QColor(shown.pixel(box.x() + 1, box.y() + box.height() - 1)),
              viewer.palette().color(QPalette::ToolTipBase));

    restAt(390, 50);
    const int width = label.width() + 7;
    EXPECT_EQ(box.geometry(), QRect(400 - 7 - width, 69, width, label.height() + 3));

    restAt(40, 190); // 190 + 19 is below the bottom
    const int height = label.height() + 3;
    EXPECT_EQ(box.geometry(), QRect(40, 200 - 19 - height, label.width() + 7, height));
}

// The Viewer's own timer does the sampling: the one test that lets it run.
TEST_F(ToolTipTest, TheViewerSamplesTheMouseWithItsTimer)
{
    viewer.SetToolTip(kStreets, "NOMBRE");
    QMouseEvent move(QEvent::MouseMove, QPointF(40, 50), viewer.mapToGlobal(QPointF(40, 50)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&viewer, &move);
    const auto* sampling = viewer.findChild<QTimer*>("tmrToolTip");
    ASSERT_NE(sampling, nullptr);
    EXPECT_TRUE(sampling->isActive());
    EXPECT_TRUE(QTest::qWaitFor([this] { return viewer.toolTipBox()->isVisible(); }));
    EXPECT_EQ(viewer.toolTipLabel()->text(), "Etiqueta: Calle Mayor");
    // Leaving the map takes the box away, and sampling stops with it.
    QCoreApplication::sendEvent(&viewer, &move);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&viewer, &leave);
    EXPECT_FALSE(viewer.toolTipBox()->isVisible());
    EXPECT_FALSE(sampling->isActive());
    viewer.SetToolTip(0, "");
    EXPECT_FALSE(viewer.toolTipBox()->isVisible());
}

} // namespace
