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

bool GdalRasterSource::readBands(QImage& picture, const QRect& covered, const double (&source)[4]) const
{
    const PixelWindow columns = wholePixels(source[0], source[2], width_);
    const PixelWindow rows = wholePixels(source[1], source[3], height_);
    GDALRasterIOExtraArg extra;
    INIT_RASTERIO_EXTRA_ARG(extra);
    extra.eResampleAlg = GRIORA_NearestNeighbour;
    extra.bFloatingPointWindowValidity = TRUE;
    extra.dfXOff = source[0];
    extra.dfYOff = source[1];
    extra.dfXSize = source[2] - source[0];
    extra.dfYSize = source[3] - source[1];

    const qsizetype line = picture.bytesPerLine();
    uchar* first = picture.bits() + covered.y() * line + covered.x() * 4;
    const bool grey = bands_ < 3;
    const bool alpha = bands_ == 2 || bands_ == 4;
    // Grey goes to red (copied to green and blue below), alpha to the fourth byte.
    int bandMap[4] = {1, 2, 3, 4};
    const int channels = grey ? 1 : bands_;
    CPLErr result = GDALDatasetRasterIOEx(handle(dataset_), GF_Read, columns.offset, rows.offset, columns.size,
                                          rows.size, first, covered.width(), covered.height(), GDT_Byte, channels,
                                          bandMap, 4, line, 1, &extra);
    if (result == CE_None && grey && alpha) {
        GDALRasterBandH alphaBand = GDALGetRasterBand(handle(dataset_), 2);
        result = GDALRasterIOEx(alphaBand, GF_Read, columns.offset, rows.offset, columns.size, rows.size, first + 3,
                                covered.width(), covered.height(), GDT_Byte, 4, line, &extra);
    }
    if (result != CE_None) {
        return false;
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

} // namespace orbelan
