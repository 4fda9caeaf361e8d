#include "ui/WidgetUiServices.h"

#include <QDialog>
#include <QMenu>
#include <QMessageBox>

namespace orbelan {

namespace {

QMessageBox::Icon boxIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None: return QMessageBox::NoIcon;
    case MessageIcon::Critical: return QMessageBox::Critical;
    case MessageIcon::Question: return QMessageBox::Question;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
    case MessageIcon::Information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton standardButton(MessageAnswer answer)
{
    switch (answer) {
    case MessageAnswer::OK: return QMessageBox::Ok;
    case MessageAnswer::Cancel: return QMessageBox::Cancel;
    case MessageAnswer::Abort: return QMessageBox::Abort;
    case MessageAnswer::Retry: return QMessageBox::Retry;
    case MessageAnswer::Ignore: return QMessageBox::Ignore;
    case MessageAnswer::Yes: return QMessageBox::Yes;
    case MessageAnswer::No: return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

// Adds the set's buttons in order; the first one is the default, as the
// host platform's boxes have it.
void addButtons(QMessageBox& box, MessageButtons buttons)
{
    for (MessageAnswer answer : buttonsOf(buttons))
        box.addButton(standardButton(answer));
    box.setDefaultButton(standardButton(defaultAnswer(buttons)));
}

// The answer of the button the box was closed with. A box closed without a
// button of its own (its window closed) counts as its default button.
MessageAnswer answerOf(const QMessageBox& box, MessageButtons buttons)
{
    const QMessageBox::StandardButton clicked = box.standardButton(box.clickedButton());
    for (MessageAnswer answer : buttonsOf(buttons)) {
        if (standardButton(answer) == clicked)
            return answer;
    }
    return defaultAnswer(buttons);
}

} // namespace

MessageAnswer WidgetUiServices::messageBox(QWidget* parent, const QString& text, MessageButtons buttons,
                                           MessageIcon icon, const QString& caption)
{
    QMessageBox box(boxIcon(icon), caption, text, QMessageBox::NoButton, parent);
    addButtons(box, buttons);
    box.exec();
    return answerOf(box, buttons);
}

int WidgetUiServices::execDialog(QDialog& dialog)
{
    return dialog.exec();
}

void WidgetUiServices::popupMenu(QMenu& menu, const QPoint& globalPosition)
{
    menu.exec(globalPosition);
}

} // namespace orbelan
