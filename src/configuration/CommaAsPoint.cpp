#include "configuration/CommaAsPoint.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace orbelan {

CommaAsPoint::CommaAsPoint(QLineEdit& box) : QObject(&box), box_(box) { box.installEventFilter(this); }

bool CommaAsPoint::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &box_ || event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent*>(event)->text() != QStringLiteral(",")) {
        return false;
    }
    // The point goes through the box's other filters as if typed.
    QKeyEvent point(QEvent::KeyPress, Qt::Key_Period, Qt::NoModifier, QStringLiteral("."));
    QCoreApplication::sendEvent(&box_, &point);
    return true;
}

} // namespace orbelan
