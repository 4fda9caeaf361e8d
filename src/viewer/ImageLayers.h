#pragma once

#include "render/RasterImages.h"

#include <QString>

#include <cstdint>
#include <memory>

namespace orbelan {

class Layers;

// The raster images of a map's image layers (kind 5). An image layer's
// ImageName is a file in the folder ImagePath names; the layer's ImageNumber
// is the number of its open image here, -1 while it has none.
class ImageLayers {
public:
    // The folder of the raster files, without a trailing separator.
    const QString& path() const { return path_; }
    // Stores a new folder and re-binds every image layer to it: a layer
    // without image loads its file, a layer with one closes it and opens the
    // file of the same name in the new folder (none when it lacks the file),
    // under the same number. Nothing happens when the folder is the same;
    // without layers the folder is only stored. False when unchanged.
    bool setPath(const QString& path, Layers& layers);
    // A newly numbered image of the file in the folder; -1 when there is no
    // such file or it is no raster GDAL can place.
    std::int32_t load(const QString& fileName);
    // Every image layer without image loads its file.
    void bind(Layers& layers);
    // The map is gone: every image is closed, its number kept.
    void closeAll() { images_.closeAll(); }
    // True when an image was ever given the number, open or closed since.
    bool exists(std::int32_t number) const { return images_.exists(number); }
    const RasterImages& images() const { return images_; }

private:
    std::unique_ptr<RasterSource> open(const QString& fileName) const;

    QString path_;
    RasterImages images_;
};

} // namespace orbelan
