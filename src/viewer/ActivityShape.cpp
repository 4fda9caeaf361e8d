#include "viewer/ActivityShape.h"

#include <QPainter>

namespace orbelan {

namespace {

constexpr int kSide = 8;

} // namespace

ActivityShape::ActivityShape(QWidget* parent)
    : QWidget(parent)
{
    setFixedSize(kSide, kSide);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ActivityShape::toggleColor()
{
    fill_ = fill_ == kGreen ? kRed : kGreen;
    update();
}

void ActivityShape::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), fill_);
}

} // namespace orbelan
