#include "configuration/ClassPreview.h"

#include "render/OleColor.h"
#include "render/QtMapCanvas.h"

#include <QPainter>

namespace orbelan {

ClassPreview::ClassPreview(TipoLayer kind, QWidget* parent)
    : QWidget(parent),
      kind_(kind)
{
    setObjectName(QStringLiteral("Preview"));
}

void ClassPreview::showStyle(const Theme& style)
{
    style_ = style;
    update();
}

void ClassPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto colour = [this](std::int32_t ole) {
        return olecolor::toQColor(static_cast<std::uint32_t>(ole), palette());
    };
    painter.fillRect(rect(), Qt::white);
    painter.setPen(QPen(colour(style_.DrawColor), style_.DrawWidth, QtMapCanvas::penStyle(style_.DrawStyle)));
    const QRect inside = rect().adjusted(8, 8, -8, -8);
    if (kind_ == polygonlayer) {
        painter.setBrush(QBrush(colour(style_.FillColor), QtMapCanvas::brushStyle(style_.FillStyle)));
        painter.drawRect(inside);
    } else if (kind_ == pointlayer) {
        painter.drawEllipse(inside.center(), 4, 4);
    } else {
        painter.drawLine(inside.bottomLeft(), inside.topRight());
    }
}

} // namespace orbelan
