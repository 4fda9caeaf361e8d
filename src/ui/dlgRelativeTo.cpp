#include "ui/dlgRelativeTo.h"

#include "ui/DecimalBox.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QLineEdit>

namespace orbelan {

dlgRelativeTo::dlgRelativeTo(QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgRelativeTo"), QStringLiteral("Relative To"), parent),
      txtXCoord_(decimalBox(QStringLiteral("txtXCoord"), this)),
      txtYCoord_(decimalBox(QStringLiteral("txtYCoord"), this))
{
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("X"), txtXCoord_);
    form->addRow(QStringLiteral("Y"), txtYCoord_);
    fields().addLayout(form);
}

QString dlgRelativeTo::xText() const { return txtXCoord_->text(); }
QString dlgRelativeTo::yText() const { return txtYCoord_->text(); }

} // namespace orbelan
