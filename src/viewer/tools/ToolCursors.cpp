#include "viewer/tools/ToolCursors.h"

#include <QPainter>
#include <QPixmap>

#include <functional>

namespace orbelan::toolcursors {

namespace {

constexpr int kSize = 32;

// A magnifying glass whose lens centre is the hot spot, with a mark inside.
QCursor magnifier(const std::function<void(QPainter&)>& mark)
{
    QPixmap image(kSize, kSize);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 4));
    painter.drawEllipse(QPointF(12, 12), 8, 8);
    painter.drawLine(QPointF(18, 18), QPointF(28, 28));
    painter.setPen(QPen(Qt::black, 2));
    painter.drawEllipse(QPointF(12, 12), 8, 8);
    painter.drawLine(QPointF(18, 18), QPointF(28, 28));
    mark(painter);
    return QCursor(image, 12, 12);
}

QCursor pan()
{
    QPixmap image(kSize, kSize);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF tips[] = {{16, 2}, {30, 16}, {16, 30}, {2, 16}};
    for (const QColor& colour : {QColor(Qt::white), QColor(Qt::black)}) {
        painter.setPen(QPen(colour, colour == Qt::white ? 4 : 2));
        painter.drawLine(QPointF(16, 3), QPointF(16, 29));
        painter.drawLine(QPointF(3, 16), QPointF(29, 16));
        for (const QPointF& tip : tips) {
            const QPointF back = (tip - QPointF(16, 16)) * 0.7 + QPointF(16, 16);
            const QPointF side(back.y() - 16, 16 - back.x());
            painter.drawLine(tip, back + side * 0.35);
            painter.drawLine(tip, back - side * 0.35);
        }
    }
    return QCursor(image, 16, 16);
}

} // namespace

QCursor cursor(Resource resource)
{
    const QPen mark(Qt::black, 2);
    switch (resource) {
    case ZoomWindow:
        return magnifier([&](QPainter& p) { p.setPen(QPen(Qt::black, 1, Qt::DashLine)); p.drawRect(8, 8, 8, 8); });
    case ZoomIn:
        return magnifier([&](QPainter& p) {
            p.setPen(mark);
            p.drawLine(8, 12, 16, 12);
            p.drawLine(12, 8, 12, 16);
        });
    case ZoomOut:
        return magnifier([&](QPainter& p) { p.setPen(mark); p.drawLine(8, 12, 16, 12); });
    case Pan:
        return pan();
    }
    return QCursor(Qt::ArrowCursor);
}

} // namespace orbelan::toolcursors
