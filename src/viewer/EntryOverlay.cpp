#include "viewer/EntryOverlay.h"

#include "viewer/GeoPixels.h"

#include <QImage>
#include <QPainter>
#include <QPolygonF>

namespace orbelan {

namespace {

constexpr int kSegmentWidth = 5;
constexpr int kDotWidth = 9;

void dot(QPainter& painter, const QColor& colour, const std::optional<QPointF>& at)
{
    if (at) {
        painter.setPen(QPen(colour, kDotWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawPoint(*at);
    }
}

} // namespace

void EntryOverlay::followPointer(const std::optional<QPointF>& pointer, bool closing)
{
    pointer_ = pointer;
    closing_ = closing;
}

void EntryOverlay::paint(QPainter& painter, const Viewport& view, std::span<const Vertex> entered) const
{
    QPolygonF line;
    for (const Vertex& point : entered) {
        if (const auto pixel = pixelOf(view, point)) {
            line << *pixel;
        }
    }
    painter.setPen(QPen(Qt::black, 1));
    painter.drawPolyline(line);
    if (!pointer_ || line.isEmpty()) {
        return;
    }
    painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
    painter.drawLine(line.back(), *pointer_);
    if (closing_) {
        painter.drawLine(*pointer_, line.front());
    }
}

void EntryOverlay::markSegment(QImage& picture, const Viewport& view, const Vertex& first, const Vertex& second,
                               const Vertex& click)
{
    QPainter painter(&picture);
    const auto from = pixelOf(view, first);
    const auto to = pixelOf(view, second);
    if (from && to) {
        painter.setPen(QPen(Qt::red, kSegmentWidth));
        painter.drawLine(*from, *to);
    }
    dot(painter, Qt::red, from);
    dot(painter, Qt::blue, pixelOf(view, click));
}

} // namespace orbelan
