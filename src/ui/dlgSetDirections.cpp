#include "ui/dlgSetDirections.h"

#include <QBoxLayout>
#include <QComboBox>

namespace orbelan {

dlgSetDirections::dlgSetDirections(const QStringList& fieldNames, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgSetDirections"), QStringLiteral("Set Directions"), parent)
{
    auto* cboField = new QComboBox(this);
    cboField->setObjectName(QStringLiteral("cboField"));
    cboField->addItems(fieldNames);
    fields().addWidget(cboField);
}

} // namespace orbelan
