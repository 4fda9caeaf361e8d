#include "viewer/tools/ToolCursors.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

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

// Cross hairs whose centre is the hot spot, with a mark in the lower right
// quarter that tells the tools apart.
QCursor crossHairs(const std::function<void(QPainter&)>& mark)
{
    QPixmap image(kSize, kSize);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QColor& colour : {QColor(Qt::white), QColor(Qt::black)}) {
        painter.setPen(QPen(colour, colour == Qt::white ? 3 : 1));
        painter.drawLine(QPointF(10, 1), QPointF(10, 19));
        painter.drawLine(QPointF(1, 10), QPointF(19, 10));
    }
    painter.setPen(QPen(Qt::black, 2));
    painter.setBrush(Qt::white);
    mark(painter);
    return QCursor(image, 10, 10);
}

// A letter in a white box, as the mark of cross hairs.
QCursor lettered(const QString& letter)
{
    return crossHairs([&](QPainter& p) {
        p.drawRect(QRectF(18, 18, 12, 12));
        QFont font = p.font();
        font.setPixelSize(10);
        font.setBold(true);
        p.setFont(font);
        p.drawText(QRectF(18, 18, 12, 12), Qt::AlignCenter, letter);
    });
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
    case Information:
        return lettered(QStringLiteral("i"));
    case EditInformation:
        return lettered(QStringLiteral("e"));
    case Erase:
        return lettered(QStringLiteral("x"));
    case NewPoint:
        return crossHairs([](QPainter& p) { p.drawEllipse(QPointF(24, 24), 4, 4); });
    case Measure:
        return crossHairs([](QPainter& p) {
            p.drawRect(QRectF(16, 21, 15, 6));
            p.drawLine(QPointF(21, 21), QPointF(21, 24));
            p.drawLine(QPointF(26, 21), QPointF(26, 24));
        });
    case NewPolyline:
        return crossHairs([](QPainter& p) { p.drawPolyline(QPolygonF({{17, 30}, {22, 20}, {26, 27}, {31, 18}})); });
    case NewPolygon:
        return crossHairs([](QPainter& p) { p.drawPolygon(QPolygonF({{17, 30}, {20, 18}, {31, 21}, {28, 30}})); });
    }
    return QCursor(Qt::ArrowCursor);
}

} // namespace orbelan::toolcursors
