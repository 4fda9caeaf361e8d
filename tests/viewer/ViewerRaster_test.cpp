// Image layers, the snapshot and the export, through the Viewer.

#include "ShownViewer.h"

#include <gdal.h>

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <vector>

using namespace orbelan;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kBlue = 0xFF0000FF;

// A three-band GeoTIFF, 0.1 degree a pixel, its top-left corner at (west, north).
void writeGeoTiff(const QString& path, double west, double north, int width, int height,
                  const std::function<QRgb(double x, double y)>& colour)
{
    GDALAllRegister();
    GDALDatasetH file = GDALCreate(GDALGetDriverByName("GTiff"), path.toUtf8().constData(), width, height, 3,
                                   GDT_Byte, nullptr);
    ASSERT_NE(file, nullptr);
    double transform[6] = {west, 0.1, 0, north, 0, -0.1};
    GDALSetGeoTransform(file, transform);
    std::vector<unsigned char> band(static_cast<std::size_t>(width) * height);
    for (int b = 0; b < 3; ++b) {
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                const QRgb pixel = colour(west + (column + 0.5) * 0.1, north - (row + 0.5) * 0.1);
                const int value = b == 0 ? qRed(pixel) : b == 1 ? qGreen(pixel) : qBlue(pixel);
                band[static_cast<std::size_t>(row) * width + column] = static_cast<unsigned char>(value);
            }
        }
        ASSERT_EQ(GDALRasterIO(GDALGetRasterBand(file, b + 1), GF_Write, 0, 0, width, height, band.data(), width,
                               height, GDT_Byte, 0, 0),
                  CE_None);
    }
    GDALClose(file);
}

// (-15, 0) to (-5, 8): red where the view shows it, green left of the view
// and blue above it.
void writeCornerImage(const QString& path)
{
    writeGeoTiff(path, -15, 8, 100, 80, [](double x, double y) { return x < -10 ? kGreen : y > 5 ? kBlue : kRed; });
}

class ViewerRaster : public ShownViewer {
protected:
    ViewerRaster()
    {
        EXPECT_TRUE(QDir(folder.path()).mkdir("a"));
        EXPECT_TRUE(QDir(folder.path()).mkdir("b"));
        writeCornerImage(pathA + "/relief.tif");
    }

    layer& addImageLayer(std::int32_t id)
    {
        layer& image = viewer.Layers().AddLayer("relief.tif", id, ImageLayer, viewer.viewport());
        image.AccessLevel = ALViewer;
        image.setUserVisibility(2);
        return image;
    }

    QImage picture() { return viewer.grab().toImage(); }

    QTemporaryDir folder;
    QString pathA = folder.path() + "/a";
    QString pathB = folder.path() + "/b";
};

TEST_F(ViewerRaster, AnImagePartlyOutsideShowsOnlyItsVisiblePartUnderTheLayersAfterIt)
{
    layer& image = addImageLayer(1);
    addRectangle(addLayer(2, polygonlayer, 0xFF0000), 1, -6, 1, -4, 2); // blue, from pixel (80, 60)
    viewer.setImagePath(pathA);
    EXPECT_NE(image.ImageNumber, -1);
    const QImage shown = picture();
    for (const QPoint pixel : {QPoint(0, 0), QPoint(50, 50), QPoint(99, 99), QPoint(75, 70)}) {
        EXPECT_EQ(shown.pixel(pixel), kRed) << pixel.x() << "," << pixel.y();
    }
    EXPECT_EQ(shown.pixel(85, 65), kBlue);
    EXPECT_EQ(shown.pixel(101, 50), kWhite);
    EXPECT_EQ(shown.pixel(50, 101), kWhite);
}

TEST_F(ViewerRaster, ImagePathRebindsOnlyWhenItChangesAndAFolderLackingTheFileLeavesNoImage)
{
    layer& image = addImageLayer(1);
    viewer.setImagePath(pathA);
    const std::int32_t number = image.ImageNumber;
    ASSERT_NE(number, -1);
    EXPECT_TRUE(viewer.RendererExists(number));
    EXPECT_FALSE(viewer.RendererExists(number + 1));

    // The open image is kept: the same folder again re-opens nothing.
    ASSERT_TRUE(QFile::remove(pathA + "/relief.tif"));
    QSignalSpy changed(&viewer, &Viewer::propertyChanged);
    viewer.setImagePath(pathA);
    EXPECT_TRUE(changed.isEmpty());
    viewer.Redraw();
    EXPECT_EQ(picture().pixel(50, 50), kRed);

    viewer.setImagePath(pathB);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(picture().pixel(50, 50), kWhite);
    EXPECT_EQ(image.ImageNumber, number);
    EXPECT_TRUE(viewer.RendererExists(number));

    writeCornerImage(pathA + "/relief.tif");
    viewer.setImagePath(pathA);
    EXPECT_EQ(image.ImageNumber, number);
    EXPECT_EQ(picture().pixel(50, 50), kRed);
    EXPECT_EQ(viewer.LoadRasterFile("missing.tif"), -1);
    EXPECT_EQ(viewer.LoadRasterFile("relief.tif"), number + 1);
}

TEST_F(ViewerRaster, AHiddenControlClosesItsImagesAndKeepsTheirNumbers)
{
    const std::int32_t number = [this] {
        layer& image = addImageLayer(1);
        viewer.setImagePath(pathA);
        return image.ImageNumber;
    }();
    viewer.hide();
    viewer.show();
    addImageLayer(1).ImageNumber = number;
    viewer.Redraw();
    EXPECT_EQ(picture().pixel(50, 50), kWhite);
    EXPECT_TRUE(viewer.RendererExists(number));
}

TEST_F(ViewerRaster, ALayerWhoseFileIsMissingHasNoImageAndTheRestDraws)
{
    viewer.setImagePath(pathB);
    addImageLayer(1);
    addRectangle(addLayer(2, polygonlayer, 0xFF0000), 1, -6, 1, -4, 2);
    Layers layers = std::move(viewer.Layers());
    viewer.setLayers(std::move(layers));
    viewer.Redraw();
    EXPECT_EQ(viewer.Layers().Find(1)->ImageNumber, -1);
    EXPECT_EQ(picture().pixel(85, 65), kBlue);
    EXPECT_EQ(picture().pixel(50, 50), kWhite);
}

TEST_F(ViewerRaster, SnapShotHoldsTheMapDrawnLastNotTheDraggedPicture)
{
    addRectangle(addLayer(1, polygonlayer, 0x0000FF), 1, -1, -1, 1, 1); // red, pixels 180 to 220
    viewer.Redraw();
    QClipboard* clipboard = QGuiApplication::clipboard();
    viewer.Pan();
    QTest::mousePress(&viewer, Qt::LeftButton, Qt::NoModifier, {200, 100});
    QTest::mouseMove(&viewer, {260, 100});
    viewer.SnapShot();
    EXPECT_EQ(clipboard->image().pixel(200, 100), kRed);
    EXPECT_EQ(clipboard->image().pixel(250, 100), kWhite);
    QTest::mouseRelease(&viewer, Qt::LeftButton, Qt::NoModifier, {260, 100});
    viewer.SnapShot();
    const QImage after = clipboard->image();
    EXPECT_EQ(after.size(), QSize(400, 200));
    EXPECT_EQ(after.pixel(200, 100), kWhite);
    EXPECT_EQ(after.pixel(250, 100), kRed);
}

TEST_F(ViewerRaster, ExportWritesAPngOfTheAskedSizeAndAPdfPageOfIt)
{
    addRectangle(addLayer(1, polygonlayer, 0x0000FF), 1, -1, -1, 1, 1);
    viewer.Redraw();
    const QString png = folder.path() + "/map.png";
    ASSERT_TRUE(viewer.ExportImage(png, 800, 400, 192));
    const QImage exported(png);
    EXPECT_EQ(exported.size(), QSize(800, 400));
    EXPECT_NEAR(exported.dotsPerMeterX() * 0.0254, 192, 0.5);
    EXPECT_EQ(exported.pixel(400, 200), kRed); // 40 pixels a degree
    EXPECT_EQ(exported.pixel(445, 200), kWhite);
    EXPECT_EQ(picture().pixel(215, 100), kRed); // the control's own picture is as it was

    const QString pdf = folder.path() + "/map.pdf";
    ASSERT_TRUE(viewer.ExportImage(pdf, 720, 360, 144));
    QFile written(pdf);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QByteArray bytes = written.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF-"));
    EXPECT_EQ(bytes.count("%%EOF"), 1); // one document, drawn by one painter
    // Polygons stay vectors: the page holds no picture.
    EXPECT_FALSE(bytes.contains("/Subtype /Image"));
    // 720 x 360 pixels at 144 dots per inch: 5 x 2.5 inches, 360 x 180 points.
    const QRegularExpressionMatch box =
        QRegularExpression(R"(/MediaBox \[0 0 ([0-9.]+) ([0-9.]+)\])").match(QString::fromLatin1(bytes));
    ASSERT_TRUE(box.hasMatch());
    EXPECT_NEAR(box.captured(1).toDouble(), 360, 0.5);
    EXPECT_NEAR(box.captured(2).toDouble(), 180, 0.5);

    QSignalSpy errors(&viewer, &Viewer::errorOccurred);
    EXPECT_FALSE(viewer.ExportImage(folder.path() + "/map.bmp", 100, 100, 96));
    EXPECT_FALSE(viewer.ExportImage(folder.path() + "/missing/map.png", 100, 100, 96));
    EXPECT_FALSE(viewer.ExportImage(folder.path() + "/missing/map.pdf", 100, 100, 96));
    EXPECT_FALSE(viewer.ExportImage(png, 0, 100, 96));
    ASSERT_EQ(errors.size(), 4);
    EXPECT_TRUE(errors[0][0].toString().contains(".png or .pdf"));
    EXPECT_TRUE(errors[1][0].toString().contains("cannot write"));
    EXPECT_TRUE(QImage(png).size() == QSize(800, 400));
}

} // namespace
