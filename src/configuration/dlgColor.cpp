#include "configuration/dlgColor.h"

#include <QBoxLayout>
#include <QColorDialog>
#include <QLineEdit>

namespace orbelan {

dlgColor::dlgColor(const QColor& initial, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgColor"), QStringLiteral("Color"), parent),
      picker_(new QColorDialog(initial, this)),
      text_(new QLineEdit(initial.name(), this))
{
    // The picker is a part of this form, not a window of its own.
    picker_->setWindowFlags(Qt::Widget);
    picker_->setOptions(QColorDialog::NoButtons | QColorDialog::DontUseNativeDialog);
    text_->setObjectName(QStringLiteral("txtColor"));
    fields().addWidget(picker_);
    fields().addWidget(text_);
    connect(picker_, &QColorDialog::currentColorChanged, this, [this](const QColor& colour) {
        if (colour != QColor::fromString(text_->text())) {
            text_->setText(colour.name());
        }
    });
    connect(text_, &QLineEdit::textChanged, this, &dlgColor::takeTypedColour);
}

QColor dlgColor::colour() const
{
    return picker_->currentColor();
}

void dlgColor::takeTypedColour(const QString& text)
{
    const QColor typed = QColor::fromString(text);
    if (typed.isValid() && typed != picker_->currentColor()) {
        picker_->setCurrentColor(typed);
    }
}

} // namespace orbelan
