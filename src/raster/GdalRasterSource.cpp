#include "raster/GdalRasterSource.h"

#include <gdal.h>

#include <algorithm>
#include <cmath>
#include <mutex>

namespace orbelan {

namespace {

GDALDatasetH handle(void* dataset) { return static_cast<GDALDatasetH>(dataset); }

// A source window's position and size as the whole pixels RasterIO takes,
// with the exact window passed alongside.
struct PixelWindow {
    int offset;
    int size;
};

PixelWindow wholePixels(double from, double to, int limit)
{
    const int first = std::clamp(static_cast<int>(std::floor(from)), 0, limit - 1);
    const int last = std::clamp(static_cast<int>(std::ceil(to)), first + 1, limit);
    return {first, last - first};
}

} // namespace

std::unique_ptr<GdalRasterSource> GdalRasterSource::open(const std::string& path)
{
    static std::once_flag registered;
    std::call_once(registered, [] { GDALAllRegister(); });
    GDALDatasetH dataset = GDALOpenEx(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, nullptr, nullptr, nullptr);
    if (dataset == nullptr) {
        return nullptr;
    }
    std::array<double, 6> transform{};
    const bool northUp = GDALGetGeoTransform(dataset, transform.data()) == CE_None && transform[2] == 0 &&
                         transform[4] == 0 && transform[1] > 0 && transform[5] < 0;
    const int bands = GDALGetRasterCount(dataset);
    if (!northUp || bands < 1 || bands > 4) {
        GDALClose(dataset);
        return nullptr;
    }
    return std::unique_ptr<GdalRasterSource>(new GdalRasterSource(dataset, transform));
}

GdalRasterSource::GdalRasterSource(void* dataset, const std::array<double, 6>& transform)
    : dataset_(dataset),
      transform_(transform),
      width_(GDALGetRasterXSize(handle(dataset))),
      height_(GDALGetRasterYSize(handle(dataset))),
      bands_(GDALGetRasterCount(handle(dataset)))
{
}

GdalRasterSource::~GdalRasterSource() { GDALClose(handle(dataset_)); }

WorldWindow GdalRasterSource::extent() const
{
    return {transform_[0], transform_[3] + height_ * transform_[5], transform_[0] + width_ * transform_[1],
            transform_[3]};
}

QImage GdalRasterSource::read(const WorldWindow& window, QSize size) const
{
    QImage picture(size, QImage::Format_RGBA8888);
    picture.fill(Qt::transparent);
    if (picture.isNull() || window.east <= window.west || window.north <= window.south) {
        return picture;
    }
    // The window in the file's pixels, then the part of it the file covers.
    const double left = (window.west - transform_[0]) / transform_[1];
    const double right = (window.east - transform_[0]) / transform_[1];
    const double top = (window.north - transform_[3]) / transform_[5];
    const double bottom = (window.south - transform_[3]) / transform_[5];
    const double source[4] = {std::max(left, 0.0), std::max(top, 0.0), std::min(right, double(width_)),
                              std::min(bottom, double(height_))};
    if (source[2] <= source[0] || source[3] <= source[1]) {
        return picture;
    }
    const double xScale = size.width() / (right - left);
    const double yScale = size.height() / (bottom - top);
    const QRect covered = QRect(QPoint(static_cast<int>(std::lround((source[0] - left) * xScale)),
                                       static_cast<int>(std::lround((source[1] - top) * yScale))),
                                QPoint(static_cast<int>(std::lround((source[2] - left) * xScale)) - 1,
                                       static_cast<int>(std::lround((source[3] - top) * yScale)) - 1))
                              .intersected(picture.rect());
    if (covered.isEmpty() || !readBands(picture, covered, source)) {
        picture.fill(Qt::transparent);
    }
    return picture;
}

// The overview read from: the coarsest one that still has at least 80% of
// the pixels drawn (a little enlarged shows no difference, and it decodes a
// fraction of the tiles of the next finer one); -1 for the full resolution.
int GdalRasterSource::overviewFor(double sourcePixelsPerPixel) const
{
    GDALRasterBandH first = GDALGetRasterBand(handle(dataset_), 1);
    int chosen = -1;
    double chosenFactor = 1;
    for (int level = 0; level < GDALGetOverviewCount(first); ++level) {
        GDALRasterBandH overview = GDALGetOverview(first, level);
        const double factor = overview ? double(width_) / GDALGetRasterBandXSize(overview) : 0;
        if (factor > chosenFactor && factor <= sourcePixelsPerPixel * kEnlargement) {
            chosen = level;
            chosenFactor = factor;
        }
    }
    return chosen;
}

bool GdalRasterSource::readBands(QImage& picture, const QRect& covered, const double (&source)[4]) const
{
    const int level = overviewFor(std::min((source[2] - source[0]) / covered.width(),
                                           (source[3] - source[1]) / covered.height()));
    const qsizetype line = picture.bytesPerLine();
    uchar* first = picture.bits() + covered.y() * line + covered.x() * 4;
    const bool grey = bands_ < 3;
    const bool alpha = bands_ == 2 || bands_ == 4;
    for (int band = 1; band <= bands_; ++band) {
        GDALRasterBandH read = GDALGetRasterBand(handle(dataset_), band);
        if (level >= 0) {
            read = GDALGetOverview(read, level);
        }
        // Grey goes to red (copied to green and blue below), alpha to the fourth byte.
        const int channel = grey && band == 2 ? 3 : band - 1;
        if (read == nullptr || !readBand(read, source, first + channel, covered.size(), line)) {
            return false;
        }
    }
    for (int y = 0; y < covered.height(); ++y) {
        uchar* pixel = first + y * line;
        for (int x = 0; x < covered.width(); ++x, pixel += 4) {
            if (grey) {
                pixel[1] = pixel[2] = pixel[0];
            }
            if (!alpha) {
                pixel[3] = 255;
            }
        }
    }
    return true;
}

// The window of the full image (its pixels), read from the band at its own
// resolution into every fourth byte.
bool GdalRasterSource::readBand(void* band, const double (&source)[4], uchar* into, QSize size, qsizetype line) const
{
    GDALRasterBandH read = static_cast<GDALRasterBandH>(band);
    const double xScale = double(GDALGetRasterBandXSize(read)) / width_;
    const double yScale = double(GDALGetRasterBandYSize(read)) / height_;
    const PixelWindow columns = wholePixels(source[0] * xScale, source[2] * xScale, GDALGetRasterBandXSize(read));
    const PixelWindow rows = wholePixels(source[1] * yScale, source[3] * yScale, GDALGetRasterBandYSize(read));
    GDALRasterIOExtraArg extra;
    INIT_RASTERIO_EXTRA_ARG(extra);
    extra.eResampleAlg = GRIORA_NearestNeighbour;
    extra.bFloatingPointWindowValidity = TRUE;
    extra.dfXOff = source[0] * xScale;
    extra.dfYOff = source[1] * yScale;
    extra.dfXSize = (source[2] - source[0]) * xScale;
    extra.dfYSize = (source[3] - source[1]) * yScale;
    return GDALRasterIOEx(read, GF_Read, columns.offset, rows.offset, columns.size, rows.size, into, size.width(),
                          size.height(), GDT_Byte, 4, line, &extra) == CE_None;
}

} // namespace orbelan
