#include "TurnedLabels.h"

#include <algorithm>
#include <cmath>

namespace orbelan {

namespace {

// The scratch grows in steps, so that a longer label rarely makes a new one.
constexpr int kGrowth = 64;

} // namespace

void TurnedLabels::reserve(int width, int height)
{
    if (width <= scratch_.width() && height <= scratch_.height()) {
        return;
    }
    if (painter_.isActive()) {
        painter_.end();
    }
    scratch_ = QImage(std::max(width + kGrowth, scratch_.width()), std::max(height, scratch_.height()),
                      QImage::Format_ARGB32_Premultiplied);
    painter_.begin(&scratch_);
}

void TurnedLabels::draw(QPainter& target, const QTransform& place, const QString& text, const QFont& font,
                        qreal ascent, qreal advance, qreal height, const QColor& color)
{
    // A pixel more each way holds the antialiased edges.
    const int width = static_cast<int>(std::ceil(advance)) + 2;
    const int rows = static_cast<int>(std::ceil(height)) + 2;
    reserve(width, rows);
    const QRect used(0, 0, width, rows);
    painter_.setCompositionMode(QPainter::CompositionMode_Source);
    painter_.fillRect(used, Qt::transparent);
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter_.setFont(font);
    painter_.setPen(color);
    painter_.drawText(QPointF(1, 1 + ascent), text);

    target.setTransform(place);
    target.setRenderHint(QPainter::SmoothPixmapTransform);
    target.drawImage(QPointF(-1, -1), scratch_, used);
    target.setRenderHint(QPainter::SmoothPixmapTransform, false);
    target.resetTransform();
}

} // namespace orbelan
