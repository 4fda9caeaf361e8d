#include "configuration/HeightKeyFilter.h"

#include "protocol/FieldTypes.h"
#include "ui/FieldKeyFilter.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace orbelan {

HeightKeyFilter::HeightKeyFilter(QLineEdit& box)
    : QObject(&box),
      box_(box)
{
    box.installEventFilter(this);
}

bool HeightKeyFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &box_ || event->type() != QEvent::KeyPress) {
        return false;
    }
    const QString typed = static_cast<QKeyEvent*>(event)->text();
    if (typed.size() != 1 || typed.front().unicode() < 32) {
        return false;
    }
    const QChar key = typed.front() == u',' ? QChar(u'.') : typed.front();
    if (FieldKeyFilter::accepts(box_.text(), fieldtype::kDouble, key.unicode())) {
        box_.insert(key);
    }
    return true;
}

} // namespace orbelan
