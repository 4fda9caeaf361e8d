#include "demo/SantiagoRelief.h"

#include "projection/ProjectionFactory.h"

#include <gdal.h>
#include <cpl_conv.h>
#include <ogr_srs_api.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

namespace orbelan::server {

namespace {

constexpr int kUtm19South = 81;
constexpr int kEpsgUtm19South = 32719;
constexpr unsigned char kAlpha = 150;
// Heights are exaggerated for the light, so that the valley's hills show.
constexpr double kExaggeration = 3;

struct PlaneBox {
    double west;
    double south;
    double east;
    double north;
};

// The geographic box's corners in the viewer's UTM plane, and the box around them.
PlaneBox planeBox(double west, double south, double east, double north)
{
    std::unique_ptr<CProjection> utm;
    InitProjection(utm, kUtm19South, west, south, east, north);
    PlaneBox box{1e300, 1e300, -1e300, -1e300};
    for (const auto& [lon, lat] : std::array<std::array<double, 2>, 4>{
             {{west, south}, {east, south}, {east, north}, {west, north}}}) {
        double x = 0;
        double y = 0;
        if (!utm || !utm->Project(lon, lat, x, y)) {
            throw std::runtime_error("the Santiago box has no place in UTM zone 19 south");
        }
        box = {std::min(box.west, x), std::min(box.south, y), std::max(box.east, x), std::max(box.north, y)};
    }
    return box;
}

double bump(double u, double v, double centreU, double centreV, double radius)
{
    const double du = (u - centreU) / radius;
    const double dv = (v - centreV) / radius;
    return std::exp(-(du * du + dv * dv));
}

// Metres above the sea at (u, v), shares of the box from its west and south edges.
double height(double u, double v)
{
    const double foothills = std::pow(std::clamp((u - 0.55) / 0.45, 0.0, 1.0), 1.5);
    const double river = v - 0.55 - 0.08 * std::sin(u * 6.0);
    return 550 + 900 * foothills + 280 * bump(u, v, 0.32, 0.72, 0.07) + 180 * bump(u, v, 0.18, 0.24, 0.06) +
           220 * bump(u, v, 0.78, 0.38, 0.10) + 25 * std::sin(u * 37.0) * std::cos(v * 29.0) -
           40 * std::exp(-(river * river) / (0.03 * 0.03));
}

// Green on the valley floor, tan and brown up the slopes, snow on the peaks.
std::array<double, 3> tint(double metres)
{
    static constexpr std::array<std::array<double, 4>, 4> stops{{
        {500, 170, 200, 140},
        {800, 215, 205, 150},
        {1100, 180, 150, 110},
        {1500, 245, 245, 245},
    }};
    if (metres <= stops.front()[0]) {
        return {stops.front()[1], stops.front()[2], stops.front()[3]};
    }
    for (std::size_t k = 1; k < stops.size(); ++k) {
        if (metres <= stops[k][0]) {
            const double share = (metres - stops[k - 1][0]) / (stops[k][0] - stops[k - 1][0]);
            return {stops[k - 1][1] + share * (stops[k][1] - stops[k - 1][1]),
                    stops[k - 1][2] + share * (stops[k][2] - stops[k - 1][2]),
                    stops[k - 1][3] + share * (stops[k][3] - stops[k - 1][3])};
        }
    }
    return {stops.back()[1], stops.back()[2], stops.back()[3]};
}

class Terrain {
public:
    Terrain(int width, int height, double metresPerPixel)
        : width_(width), height_(height), pixel_(metresPerPixel), heights_(static_cast<std::size_t>(width) * height)
    {
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                heights_[index(column, row)] = static_cast<float>(
                    orbelan::server::height((column + 0.5) / width, 1 - (row + 0.5) / height));
            }
        }
    }

    // One row as red, green, blue and alpha bytes.
    void shadeRow(int row, std::vector<unsigned char>& rgba) const
    {
        // Light from the north-west, 45 degrees up.
        const double light[3] = {-0.5, 0.5, std::sqrt(0.5)};
        for (int column = 0; column < width_; ++column) {
            const double east = (at(column + 1, row) - at(column - 1, row)) * kExaggeration / (2 * pixel_);
            const double north = (at(column, row - 1) - at(column, row + 1)) * kExaggeration / (2 * pixel_);
            const double length = std::sqrt(east * east + north * north + 1);
            const double lit = std::max(0.0, (-east * light[0] - north * light[1] + light[2]) / length);
            const std::array<double, 3> colour = tint(at(column, row));
            for (int band = 0; band < 3; ++band) {
                rgba[static_cast<std::size_t>(column) * 4 + band] =
                    static_cast<unsigned char>(std::clamp(colour[band] * (0.35 + 0.75 * lit), 0.0, 255.0));
            }
            rgba[static_cast<std::size_t>(column) * 4 + 3] = kAlpha;
        }
    }

private:
    std::size_t index(int column, int row) const { return static_cast<std::size_t>(row) * width_ + column; }
    double at(int column, int row) const
    {
        return heights_[index(std::clamp(column, 0, width_ - 1), std::clamp(row, 0, height_ - 1))];
    }

    int width_;
    int height_;
    double pixel_;
    std::vector<float> heights_;
};

void setUtmReference(GDALDatasetH dataset)
{
    OGRSpatialReferenceH reference = OSRNewSpatialReference(nullptr);
    char* wkt = nullptr;
    if (OSRImportFromEPSG(reference, kEpsgUtm19South) == OGRERR_NONE && OSRExportToWkt(reference, &wkt) == OGRERR_NONE) {
        GDALSetProjection(dataset, wkt);
    }
    CPLFree(wkt);
    OSRDestroySpatialReference(reference);
}

} // namespace

void SantiagoRelief::write(const std::string& path, double west, double south, double east, double north,
                           int longestSide)
{
    const PlaneBox box = planeBox(west, south, east, north);
    const double metresPerPixel = std::max(box.east - box.west, box.north - box.south) / std::max(longestSide, 1);
    const int width = std::max(1, static_cast<int>(std::ceil((box.east - box.west) / metresPerPixel)));
    const int height = std::max(1, static_cast<int>(std::ceil((box.north - box.south) / metresPerPixel)));

    GDALAllRegister();
    const char* options[] = {"TILED=YES",     "BLOCKXSIZE=256", "BLOCKYSIZE=256", "COMPRESS=DEFLATE",
                             "PHOTOMETRIC=RGB", "ALPHA=YES",     nullptr};
    GDALDatasetH file = GDALCreate(GDALGetDriverByName("GTiff"), path.c_str(), width, height, 4, GDT_Byte,
                                   const_cast<char**>(options));
    if (file == nullptr) {
        throw std::runtime_error("cannot write " + path + ": " + CPLGetLastErrorMsg());
    }
    double transform[6] = {box.west, metresPerPixel, 0, box.north, 0, -metresPerPixel};
    GDALSetGeoTransform(file, transform);
    setUtmReference(file);

    const Terrain terrain(width, height, metresPerPixel);
    std::vector<unsigned char> rgba(static_cast<std::size_t>(width) * 4);
    CPLErr result = CE_None;
    for (int row = 0; row < height && result == CE_None; ++row) {
        terrain.shadeRow(row, rgba);
        result = GDALDatasetRasterIO(file, GF_Write, 0, row, width, 1, rgba.data(), width, 1, GDT_Byte, 4, nullptr,
                                     4, width * 4, 1);
    }
    int levels[] = {2, 4, 8, 16, 32};
    if (result == CE_None) {
        result = GDALBuildOverviews(file, "AVERAGE", 5, levels, 0, nullptr, nullptr, nullptr);
    }
    GDALClose(file);
    if (result != CE_None) {
        throw std::runtime_error("cannot write " + path + ": " + CPLGetLastErrorMsg());
    }
}

} // namespace orbelan::server
