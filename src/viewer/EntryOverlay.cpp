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

void EntryOverlay::setRubberLines(const QLineF& fromLast, const std::optional<QLineF>& toFirst)
{
    fromLast_ = fromLast;
    toFirst_ = toFirst.value_or(QLineF());
}

void EntryOverlay::hideRubberLines()
{
    setRubberLines({}, std::nullopt);
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
    painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
    for (const QLineF& rubber : {fromLast_, toFirst_}) {
        if (!rubber.isNull()) {
            painter.drawLine(rubber);
        }
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
