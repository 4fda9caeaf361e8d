// The Viewer on a screen of two device pixels a point: CTest runs these
// tests alone with QT_SCALE_FACTOR=2.

#include "ShownViewer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTemporaryDir>

using namespace orbelan;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;
constexpr QRgb kBlack = 0xFF000000;

// The rows of the picture's column x, between top and bottom, that hold the colour.
int rowsOf(const QImage& picture, int x, int top, int bottom, QRgb colour)
{
    int rows = 0;
    for (int y = top; y < bottom; ++y) {
        rows += picture.pixel(x, y) == colour ? 1 : 0;
    }
    return rows;
}

// The height of the dark ink (text) inside the box.
int inkHeight(const QImage& picture, const QRect& box)
{
    int top = box.bottom() + 1;
    int bottom = box.top() - 1;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            if (qGray(picture.pixel(x, y)) < 128) {
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }
    return bottom - top + 1;
}

class ViewerHiDpi : public ShownViewer {};

TEST_F(ViewerHiDpi, TheMapHasThePhysicalPixelsAndKeepsItsLogicalSizes)
{
    if (qgetenv("QT_SCALE_FACTOR") != "2") {
        GTEST_SKIP() << "needs QT_SCALE_FACTOR=2, as CTest runs it";
    }
    ASSERT_EQ(viewer.devicePixelRatioF(), 2);
    viewer.setAntialiasing(false);
    // West edge half a point right of pixel 200: (200.5, 80) to (240, 120).
    addRectangle(addLayer(1, polygonlayer, 0x0000FF), 1, 0.025, -1, 2, 1);
    // A line one point wide along y = 50.
    layer& roads = addLayer(2, polylinelayer, 0xFF0000);
    roads.Entidades.AddEntity(1, std::vector<Vertex>{{-9, 2.5}, {-1, 2.5}}, roads);
    // "HH" on a white square about pixel (100, 150).
    layer& names = addLayer(3, polygonlayer, 0xFFFFFF);
    names.Loaded = true;
    names.setUserLabelVisibility(2);
    addRectangle(names, 1, -7, -4, -3, -1).IDLabel = names.GetLabelIndex("HH");
    viewer.Redraw();

    const QImage shown = viewer.grab().toImage();
    ASSERT_EQ(shown.size(), QSize(800, 400));
    // The edge falls on an odd physical pixel, which a picture of whole
    // points scaled up could not show.
    EXPECT_EQ(shown.pixel(400, 200), kWhite);
    EXPECT_EQ(shown.pixel(401, 200), kRed);
    EXPECT_EQ(rowsOf(shown, 200, 90, 110, kBlue), 2);
    // The capitals of 7-point text are 5 to 8 points tall; here each point is two pixels.
    const int ink = inkHeight(shown, QRect(120, 240, 160, 120));
    EXPECT_GE(ink, 2 * 5);
    EXPECT_LE(ink, 2 * 8);
    // The scale bar sits in the corner of the control, not off its picture.
    EXPECT_EQ(shown.pixel(2 * 385, 2 * 184), kBlack);

    QClipboard* clipboard = QGuiApplication::clipboard();
    viewer.SnapShot();
    const QImage shot = clipboard->image();
    EXPECT_EQ(shot.size(), QSize(400, 200));
    EXPECT_EQ(shot.pixel(220, 100), kRed);
    QTemporaryDir folder;
    const QString png = folder.filePath("map.png");
    ASSERT_TRUE(viewer.ExportImage(png, viewer.width(), viewer.height(), 96));
    const QImage exported(png);
    EXPECT_EQ(exported.size(), QSize(400, 200));
    EXPECT_EQ(exported.pixel(220, 100), kRed);
}

} // namespace
