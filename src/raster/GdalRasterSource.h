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
// A window is read with one RasterIO call sized to the picture drawn, so
// GDAL takes the overview nearest that resolution and decodes only the
// blocks the window touches.
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
    // Reads the bands into the covered part of an RGBA picture; false on a read error.
    bool readBands(QImage& picture, const QRect& covered, const double (&source)[4]) const;

    void* dataset_;
    std::array<double, 6> transform_;
    int width_;
    int height_;
    int bands_;
};

} // namespace orbelan
