#pragma once

#include <QImage>
#include <QSize>

namespace orbelan {

// A window of the map's projected plane: west < east, south < north.
struct WorldWindow {
    double west = 0;
    double south = 0;
    double east = 0;
    double north = 0;
};

// An open georeferenced raster image. The renderer draws through this alone,
// so that it never sees the library that decodes the file.
class RasterSource {
public:
    virtual ~RasterSource() = default;

    // Where the image lies, in the map's projected plane.
    virtual WorldWindow extent() const = 0;
    // The window of the plane as a picture of the given size: the image's
    // pixels where it covers the window, transparent elsewhere. The image is
    // read at the resolution drawn, not at its full one.
    virtual QImage read(const WorldWindow& window, QSize size) const = 0;
};

} // namespace orbelan
