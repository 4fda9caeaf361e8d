#include "render/MapRenderer.h"

#include "model/MapDocument.h"
#include "render/LabelPlacer.h"
#include "render/OleColor.h"
#include "render/QtMapCanvas.h"
#include "render/ScaleBar.h"
#include "view/Viewport.h"

#include <QImage>
#include <QPainter>

namespace orbelan {

MapRenderer::MapRenderer(const QPalette& palette, const QFont& font, int dotsPerInch)
    : palette_(palette),
      font_(font),
      dotsPerInch_(dotsPerInch)
{
}

void MapRenderer::setTextMetrics(const QFont& font, int dotsPerInch)
{
    font_ = font;
    dotsPerInch_ = dotsPerInch;
}

void MapRenderer::render(QImage& picture, const Viewport& view, MapDocument& document,
                         std::optional<std::int32_t> onlyLayer) const
{
    picture.fill(olecolor::toQColor(document.BackgroundColor, palette_));
    if (!view.viewReady() || picture.isNull()) {
        return;
    }
    QtMapCanvas canvas(picture, view, palette_);
    drawLayers(canvas, view, document, onlyLayer);
}

void MapRenderer::render(QPaintDevice& device, QSize size, const Viewport& view, MapDocument& document) const
{
    QtMapCanvas canvas(device, size, view, palette_);
    canvas.fill(olecolor::toQColor(document.BackgroundColor, palette_));
    if (view.viewReady()) {
        drawLayers(canvas, view, document, std::nullopt);
    }
    drawScaleBar(canvas.overlay(), size, view);
}

void MapRenderer::drawLayers(QtMapCanvas& canvas, const Viewport& view, MapDocument& document,
                             std::optional<std::int32_t> onlyLayer) const
{
    canvas.setTextMetrics(font_, dotsPerInch_);
    canvas.setRasters(rasters_);
    canvas.setAntialiasing(antialiasing_);
    const BoundingBox& box = view.viewBox();
    for (layer& mapLayer : document.Layers()) {
        if (!onlyLayer || mapLayer.IDLayer == *onlyLayer) {
            mapLayer.Redraw(box, canvas);
        } else {
            mapLayer.RedrawWOCalc(box, canvas);
        }
    }
    drawLabels(canvas, box, document);
    for (layer& mapLayer : document.Layers()) {
        mapLayer.DrawDirections(box, canvas);
    }
}

void MapRenderer::drawLabels(QtMapCanvas& canvas, const BoundingBox& box, MapDocument& document) const
{
    if (labelPlacement_ == 0) {
        for (layer& mapLayer : document.Layers()) {
            mapLayer.DrawLabels(box, canvas);
        }
        return;
    }
    std::vector<LabelCandidate> candidates;
    std::size_t order = 0;
    for (layer& mapLayer : document.Layers()) {
        mapLayer.CollectLabels(box, canvas, order++, candidates);
    }
    LabelPlacer placer(canvas.surface(), canvas.labelFonts());
    const QColor halo = olecolor::toQColor(document.BackgroundColor, palette_);
    for (const PlacedLabel& label : placer.place(std::move(candidates))) {
        canvas.drawPlacedLabel(label, halo);
    }
}

void MapRenderer::highlight(QImage& picture, const Viewport& view, layer& target,
                            std::span<const std::int32_t> ids) const
{
    if (!view.viewReady() || picture.isNull()) {
        return;
    }
    QtMapCanvas canvas(picture, view, palette_);
    canvas.setAntialiasing(antialiasing_);
    for (const std::int32_t id : ids) {
        target.resaltar(id, view.viewBox(), canvas);
    }
}

void MapRenderer::drawImage(QImage& picture, const Viewport& view, std::int32_t imageNumber) const
{
    if (!view.viewReady() || picture.isNull()) {
        return;
    }
    QtMapCanvas canvas(picture, view, palette_);
    canvas.setRasters(rasters_);
    canvas.DrawImage(imageNumber);
}

void MapRenderer::drawScaleBar(QPainter& painter, QSize size, const Viewport& view) const
{
    if (!scaleBar_) {
        return;
    }
    const std::optional<double> metresPerPixel = ScaleBar::groundMetresPerPixel(view);
    const std::optional<ScaleBar::Span> span = metresPerPixel ? ScaleBar::choose(*metresPerPixel) : std::nullopt;
    if (span) {
        ScaleBar::draw(painter, size, *span);
    }
}

} // namespace orbelan
