// Drawing the view of a 20,000 x 20,000 pixel GeoTIFF (three bands, tiled
// 256 x 256, DEFLATE, overviews 2 to 64) at 1280 x 800, as the Viewer draws an
// image layer: the renderer places the image, reads the window in view at
// the size drawn through GDAL and paints it. Every iteration shows another
// view, so each draw reads what it shows anew:
//   /0  the whole image (about 16 source pixels a screen pixel, overview 16);
//   /1  a quarter of its width (about 4 a pixel, overview 4);
//   /2  at full resolution (1 a pixel, no overview), moving across the image.
// With a second argument of 1, GDAL's block cache is emptied before each draw
// (outside the timing), so every tile drawn is decoded anew.
// The file is made once, in /tmp, and kept for later runs.

#include "model/MapDocument.h"
#include "raster/GdalRasterSource.h"
#include "render/MapRenderer.h"
#include "render/RasterImages.h"
#include "view/Viewport.h"

#include <gdal.h>

#include <QFileInfo>
#include <QImage>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace orbelan;

namespace {

constexpr int kSide = 20'000;
constexpr int kWidth = 1280;
constexpr int kHeight = 800;
// One pixel is one unit of the plane (a latitude/longitude map is used, so
// units are degrees scaled down): the image spans 0 to 20,000 in x and y.
constexpr double kUnitsPerPixel = 0.001;
const char* const kPath = "/tmp/orbelan_raster_bench_20000.tif";

// Gentle stripes and rings, so that tiles compress like a real image would not
// entirely, and a wrong window shows.
void writeImage()
{
    GDALAllRegister();
    const char* options[] = {"TILED=YES", "BLOCKXSIZE=256", "BLOCKYSIZE=256", "COMPRESS=DEFLATE", "BIGTIFF=YES",
                             nullptr};
    GDALDatasetH file = GDALCreate(GDALGetDriverByName("GTiff"), kPath, kSide, kSide, 3, GDT_Byte,
                                   const_cast<char**>(options));
    double transform[6] = {0, kUnitsPerPixel, 0, kSide * kUnitsPerPixel, 0, -kUnitsPerPixel};
    GDALSetGeoTransform(file, transform);
    constexpr int kRows = 256;
    std::vector<unsigned char> rows(static_cast<std::size_t>(kSide) * kRows * 3);
    for (int top = 0; top < kSide; top += kRows) {
        const int count = std::min(kRows, kSide - top);
        for (int row = 0; row < count; ++row) {
            for (int column = 0; column < kSide; ++column) {
                unsigned char* pixel = &rows[(static_cast<std::size_t>(row) * kSide + column) * 3];
                const int y = top + row;
                pixel[0] = static_cast<unsigned char>((column / 40) * 7);
                pixel[1] = static_cast<unsigned char>((y / 40) * 11);
                pixel[2] = static_cast<unsigned char>(128 + 100 * std::sin((column + y) / 300.0));
            }
        }
        GDALDatasetRasterIO(file, GF_Write, 0, top, kSide, count, rows.data(), kSide, count, GDT_Byte, 3, nullptr, 3,
                            kSide * 3, 1);
    }
    int levels[] = {2, 4, 8, 16, 32, 64};
    GDALBuildOverviews(file, "AVERAGE", 6, levels, 0, nullptr, nullptr, nullptr);
    GDALClose(file);
}

class RasterView : public benchmark::Fixture {
public:
    void SetUp(benchmark::State&) override
    {
        if (!QFileInfo::exists(kPath)) {
            writeImage();
        }
        images = std::make_unique<RasterImages>();
        const std::int32_t number = images->add(GdalRasterSource::open(kPath));
        document = std::make_unique<MapDocument>(view);
        layer& image = document->addLayer("image", 1, ImageLayer);
        image.AccessLevel = ALViewer;
        image.setUserVisibility(2);
        image.ImageNumber = number;
        renderer.setRasters(images.get());
        view.setSize(kWidth, kHeight);
    }
    void TearDown(benchmark::State&) override
    {
        document.reset();
        images.reset();
    }

    // Views of the given width in image pixels, stepping across the image.
    void showView(double pixelsWide, int step)
    {
        const double width = pixelsWide * kUnitsPerPixel;
        const double height = width * kHeight / kWidth;
        const double room = kSide * kUnitsPerPixel - width;
        const double west = room <= 0 ? 0 : std::fmod(step * 0.37 * width, room);
        const double south = room <= 0 ? 0 : std::fmod(step * 0.61 * height, kSide * kUnitsPerPixel - height);
        view.SetView(west, south, west + width, south + height);
    }

    Viewport view;
    std::unique_ptr<RasterImages> images;
    std::unique_ptr<MapDocument> document;
    MapRenderer renderer{QPalette(), QFont(), 96};
    QImage picture{kWidth, kHeight, QImage::Format_ARGB32_Premultiplied};
};

BENCHMARK_DEFINE_F(RasterView, BM_DrawImageView)(benchmark::State& state)
{
    const double widths[] = {kSide, kSide / 4.0, kWidth};
    int step = 0;
    for (auto _ : state) {
        if (state.range(1) == 1) {
            state.PauseTiming();
            while (GDALFlushCacheBlock()) {
            }
            state.ResumeTiming();
        }
        showView(widths[state.range(0)], ++step);
        renderer.render(picture, view, *document);
        benchmark::DoNotOptimize(picture.constBits());
    }
}
BENCHMARK_REGISTER_F(RasterView, BM_DrawImageView)
    ->ArgsProduct({{0, 1, 2}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace
