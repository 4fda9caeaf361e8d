#pragma once

#include <QFont>
#include <QPalette>

#include <cstdint>
#include <optional>
#include <span>

class QImage;
class QPaintDevice;
class QPainter;
class QSize;

namespace orbelan {

class BoundingBox;
class MapDocument;
class QtMapCanvas;
class RasterImages;
class Viewport;
class layer;

// Draws a map for a view into a picture, with no widget involved: the
// picture is cleared with the map's background colour, then every layer's
// geometry is drawn in collection order, each over the ones before, then the
// labels of all layers over all geometry, then the direction marks over all
// labels.
//
// The view must be the one the document's layers belong to: they decide
// whether they show by its height and scale.
class MapRenderer {
public:
    // System colours (0x80000000 + n) are looked up in the palette; label
    // sizes are measured in the font at the given dots per inch.
    MapRenderer(const QPalette& palette, const QFont& font, int dotsPerInch);

    void setPalette(const QPalette& palette) { palette_ = palette; }
    void setTextMetrics(const QFont& font, int dotsPerInch);
    // The raster images that image layers draw, by number (not owned); without
    // them image layers draw nothing.
    void setRasters(const RasterImages* rasters) { rasters_ = rasters; }
    // With the scale bar on, drawScaleBar draws a metric scale bar in a corner.
    void setScaleBar(bool shown) { scaleBar_ = shown; }
    bool scaleBar() const { return scaleBar_; }
    // Geometry drawn smoothly (see QtMapCanvas::setAntialiasing); off by default.
    void setAntialiasing(bool on) { antialiasing_ = on; }
    bool antialiasing() const { return antialiasing_; }
    // How labels are put on the map: 0 each on its element's first drawn
    // place, overlaps and all; 1 (the default) placed so that none overlaps
    // another and each lies inside the view, over a halo in the background
    // colour.
    void setLabelPlacement(std::int16_t mode) { labelPlacement_ = mode; }
    std::int16_t labelPlacement() const { return labelPlacement_; }

    // With onlyLayer, that layer is drawn anew and the others as they were
    // drawn last (their drawn elements are not looked up again).
    void render(QImage& picture, const Viewport& view, MapDocument& document,
                std::optional<std::int32_t> onlyLayer = std::nullopt) const;

    // The same on any paint device (a PDF page) of the given size in pixels,
    // every layer drawn anew, and the scale bar over them: a page takes one
    // painter only.
    void render(QPaintDevice& device, QSize size, const Viewport& view, MapDocument& document) const;

    // The label pass alone: the labels of every layer on the canvas, placed
    // as labelPlacement says.
    void drawLabels(QtMapCanvas& canvas, const BoundingBox& box, MapDocument& document) const;

    // Draws the elements of the layer highlighted over the picture.
    void highlight(QImage& picture, const Viewport& view, layer& target,
                   std::span<const std::int32_t> ids) const;
    // Draws the raster image of that number over the picture.
    void drawImage(QImage& picture, const Viewport& view, std::int32_t imageNumber) const;
    // The scale bar for the view, over a map of that size in the painter's
    // units; drawn last, so that nothing drawn on the map covers it.
    void drawScaleBar(QPainter& painter, QSize size, const Viewport& view) const;

private:
    void drawLayers(QtMapCanvas& canvas, const Viewport& view, MapDocument& document,
                    std::optional<std::int32_t> onlyLayer) const;

    QPalette palette_;
    QFont font_;
    int dotsPerInch_;
    const RasterImages* rasters_ = nullptr;

    bool scaleBar_ = false;
    bool antialiasing_ = false;
    std::int16_t labelPlacement_ = 1;
};

} // namespace orbelan
