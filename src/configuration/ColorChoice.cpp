#include "configuration/ColorChoice.h"

#include "ui/UiServices.h"

#include <QAbstractSpinBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

namespace orbelan {

namespace {

// The dialog's "#RRGGBB" box: its one line box that is no spin box's.
QLineEdit* colorTextBox(QColorDialog& dialog)
{
    for (auto* box : dialog.findChildren<QLineEdit*>()) {
        if (qobject_cast<QAbstractSpinBox*>(box->parentWidget()) == nullptr) {
            return box;
        }
    }
    return nullptr;
}

void nameButton(QColorDialog& dialog, QDialogButtonBox::StandardButton which, const QString& name)
{
    for (auto* buttons : dialog.findChildren<QDialogButtonBox*>()) {
        if (QPushButton* button = buttons->button(which)) {
            button->setObjectName(name);
        }
    }
}

} // namespace

std::optional<QColor> chooseColor(UiServices& ui, const QColor& initial, QWidget* parent)
{
    QColorDialog dialog(initial, parent);
    dialog.setObjectName(QStringLiteral("dlgColor"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    QLineEdit* text = colorTextBox(dialog);
    if (text != nullptr) {
        text->setObjectName(QStringLiteral("txtColor"));
    }
    nameButton(dialog, QDialogButtonBox::Ok, QStringLiteral("OKButton"));
    nameButton(dialog, QDialogButtonBox::Cancel, QStringLiteral("CancelButton"));
    if (ui.execDialog(dialog) != QDialog::Accepted) {
        return std::nullopt;
    }
    // The box follows every choice made with the mouse, and holds what was
    // typed even when no key was pressed.
    const QColor typed = text != nullptr ? QColor::fromString(text->text()) : QColor();
    return typed.isValid() ? typed : dialog.selectedColor();
}

} // namespace orbelan
