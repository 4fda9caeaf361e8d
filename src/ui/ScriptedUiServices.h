#pragma once

#include "ui/UiServices.h"

#include <QMap>
#include <QString>

#include <cstddef>
#include <deque>
#include <functional>
#include <vector>

namespace orbelan {

// What a person would do with one modal dialog: the values to put into its
// fields, by the fields' object names, and the button to click afterwards.
struct DialogScript {
    // The object name of the dialog the script is for; empty for any.
    QString dialog;
    QMap<QString, QString> fields;
    QString button;
};

// A message box as it was shown, and the button it was answered with.
struct ShownMessage {
    MessageIcon icon = MessageIcon::None;
    QString caption;
    QString text;
    MessageButtons buttons = MessageButtons::OK;
    MessageAnswer answer = MessageAnswer::OK;
};

struct ShownDialog {
    QString objectName;
    QString caption;
};

// A pop-up menu as it was offered: its object name and its title.
struct ShownMenu {
    QString objectName;
    QString title;
};

// Answers message boxes and drives modal dialogs from scripts queued in
// advance. It never opens a window and never waits, so tests and the headless
// host run every code path that asks a person something.
//
// Message boxes take queued answers strictly in order. The answer at the
// front of the queue is used only by a box that has that button; a box
// without it gets its default button (the first of its set) and leaves the
// answer queued for a later box. A host that types its answers ahead of time
// thus keeps them for the question they were meant for, even when a plain
// OK-only notice comes first.
//
// A dialog takes scripts from its queue until one of them ends it: a script
// fills the named fields, then clicks the named button, whose own slot
// closes the dialog (accept(), reject(), done()). A click that leaves the
// dialog open, as a failed validation does, is followed by the next script,
// just as a person corrects the fields and clicks again. When the scripts run
// out the dialog is rejected. A script meant for another dialog, or one
// that names a field or button the dialog does not have, or a value its
// field cannot take, throws std::invalid_argument naming it: a mistake in a
// script must stop the run.
//
// How a value is put into a field, by the field's class:
// - QLineEdit, QTextEdit, QPlainTextEdit: the value becomes the text.
// - QComboBox: the item with exactly that text is selected. When no item has
//   that text and the value is a whole number, the item at that 0-based index
//   is selected (the index a form's code reads back). An editable combo takes
//   any other value as typed text; a fixed one refuses it.
// - a checkable QAbstractButton (check box, option button): "1", "-1",
//   "true", "yes" check it; "0", "false", "no" and "" clear it, in any letter
//   case; anything else is refused.
// - QSpinBox, QDoubleSpinBox: a number within the box's range.
// - a list or table (QAbstractItemView): the item with exactly that text,
//   else "ROW" or "ROW,COLUMN" (0-based, in the order the view shows) is
//   made current as a click makes it; "ROW,COLUMN,dblclick" then
//   double-clicks it.
//
// A pop-up menu is recorded and closes at once with nothing chosen: a host
// clicks a menu's items by triggering them itself.
class ScriptedUiServices : public UiServices {
public:
    // The scripted box has no window, so parent is not used.
    MessageAnswer messageBox(QWidget* parent, const QString& text, MessageButtons buttons,
                             MessageIcon icon, const QString& caption) override;
    int execDialog(QDialog& dialog) override;
    void popupMenu(QMenu& menu, const QPoint& globalPosition) override;

    void queueAnswer(MessageAnswer answer);
    void queueDialog(DialogScript script);
    std::size_t queuedAnswers() const { return answers_.size(); }
    std::size_t queuedDialogs() const { return scripts_.size(); }

    // Every box and dialog shown so far, oldest first.
    const std::vector<ShownMessage>& messages() const { return messages_; }
    const std::vector<ShownDialog>& dialogs() const { return dialogs_; }
    const std::vector<ShownMenu>& menus() const { return menus_; }

    // Called for each box once its answer is chosen, and for each dialog as
    // it opens, before any script touches it.
    void setMessageObserver(std::function<void(const ShownMessage&)> observer);
    void setDialogObserver(std::function<void(const ShownDialog&)> observer);
    void setMenuObserver(std::function<void(const ShownMenu&)> observer);

private:
    MessageAnswer takeAnswer(MessageButtons buttons);
    void recordDialog(const QDialog& dialog);

    std::deque<MessageAnswer> answers_;
    std::deque<DialogScript> scripts_;
    std::vector<ShownMessage> messages_;
    std::vector<ShownDialog> dialogs_;
    std::vector<ShownMenu> menus_;
    std::function<void(const ShownMessage&)> messageObserver_;
    std::function<void(const ShownDialog&)> dialogObserver_;
    std::function<void(const ShownMenu&)> menuObserver_;
};

} // namespace orbelan
