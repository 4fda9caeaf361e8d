#pragma once

#include "render/RasterSource.h"

#include <QRect>

#include <array>
#include <memory>
#include <string>

namespace orbelan {

// A raster file opened with GDAL (GeoTIFF, PNG or JPEG with a world file,
// JPEG 2000, ECW where GDAL has the driver). Its geotransform places it in
// the map's plane; it must be north up (no rotation terms). One (grey), two
// (grey and alpha), three (red, green, blue) or four (and alpha) bands, read
// as bytes.
//
// A window is read band by band from the overview nearest the resolution
// drawn, sized to the picture, so that only the blocks the window touches at
// that resolution are decoded.
class GdalRasterSource : public RasterSource {
public:
    // The image in the file, or null when GDAL cannot open it as a north-up
    // raster of one to four bands.
    static std::unique_ptr<GdalRasterSource> open(const std::string& path);
    ~GdalRasterSource() override;

    GdalRasterSource(const GdalRasterSource&) = delete;
    GdalRasterSource& operator=(const GdalRasterSource&) = delete;

    WorldWindow extent() const override;
    QImage read(const WorldWindow& window, QSize size) const override;

private:
    GdalRasterSource(void* dataset, const std::array<double, 6>& transform);
    // An overview may be drawn enlarged up to this much.
    static constexpr double kEnlargement = 1.25;

    // Reads the bands into the covered part of an RGBA picture; false on a read error.
    bool readBands(QImage& picture, const QRect& covered, const double (&source)[4]) const;
    int overviewFor(double sourcePixelsPerPixel) const;
    bool readBand(void* band, const double (&source)[4], uchar* into, QSize size, qsizetype line) const;

    void* dataset_;
    std::array<double, 6> transform_;
    int width_;
    int height_;
    int bands_;
};

} // namespace orbelan
