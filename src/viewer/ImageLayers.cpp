#include "viewer/ImageLayers.h"

#include "model/Layers.h"
#include "raster/GdalRasterSource.h"

#include <QFileInfo>
#include <QtDebug>

namespace orbelan {

bool ImageLayers::setPath(const QString& path, Layers& layers)
{
    if (path == path_) {
        return false;
    }
    path_ = path;
    for (layer& mapLayer : layers) {
        if (mapLayer.Tipo != ImageLayer) {
            continue;
        }
        const QString name = QString::fromStdString(mapLayer.ImageName);
        if (mapLayer.ImageNumber == -1) {
            mapLayer.ImageNumber = load(name);
        } else if (images_.exists(mapLayer.ImageNumber)) {
            images_.replace(mapLayer.ImageNumber, open(name));
        }
    }
    return true;
}

std::int32_t ImageLayers::load(const QString& fileName)
{
    std::unique_ptr<RasterSource> source = open(fileName);
    return source ? images_.add(std::move(source)) : -1;
}

void ImageLayers::bind(Layers& layers)
{
    for (layer& mapLayer : layers) {
        if (mapLayer.Tipo == ImageLayer && mapLayer.ImageNumber == -1) {
            mapLayer.ImageNumber = load(QString::fromStdString(mapLayer.ImageName));
        }
    }
}

std::unique_ptr<RasterSource> ImageLayers::open(const QString& fileName) const
{
    const QString fullPath = path_ + QLatin1Char('/') + fileName;
    if (!QFileInfo(fullPath).isFile()) {
        return nullptr;
    }
    std::unique_ptr<RasterSource> source = GdalRasterSource::open(fullPath.toStdString());
    if (!source) {
        qWarning("raster image %s is no north-up raster of one to four bands", qPrintable(fullPath));
    }
    return source;
}

} // namespace orbelan
