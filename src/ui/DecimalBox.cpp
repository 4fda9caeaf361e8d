#include "ui/DecimalBox.h"

#include "ui/FieldKeyFilter.h"

#include <QLineEdit>

namespace orbelan {

namespace {

constexpr int kDoubleField = 5;

} // namespace

QLineEdit* decimalBox(const QString& name, QWidget* parent)
{
    auto* box = new QLineEdit(QStringLiteral("0"), parent);
    box->setObjectName(name);
    new FieldKeyFilter(kDoubleField, *box);
    return box;
}

} // namespace orbelan
