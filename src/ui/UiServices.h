#pragma once

#include <QString>

#include <optional>
#include <span>

class QDialog;
class QMenu;
class QPoint;
class QWidget;

namespace orbelan {

enum class MessageIcon { None, Critical, Question, Exclamation, Information };

// The button sets of a message box, numbered as the host platform's message box styles 0..5.
enum class MessageButtons { OK = 0, OKCancel = 1, AbortRetryIgnore = 2, YesNoCancel = 3, YesNo = 4, RetryCancel = 5 };

// The button a message box was closed with, numbered as the host platform reports it.
enum class MessageAnswer { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

// The one way the component opens a message box or runs a modal dialog.
// Applications install the widget implementation; tests and the headless host
// install a scripted one, so no code path can stop and wait for a person.
class UiServices {
public:
    virtual ~UiServices();

    virtual MessageAnswer messageBox(QWidget* parent, const QString& text, MessageButtons buttons,
                                     MessageIcon icon, const QString& caption) = 0;

    // Runs the dialog modally; returns its result code (QDialog::Accepted /
    // Rejected or what done() was given).
    virtual int execDialog(QDialog& dialog) = 0;

    // Pops the menu up at the global position and returns when it closes; the
    // item chosen, if any, has been triggered by then.
    virtual void popupMenu(QMenu& menu, const QPoint& globalPosition) = 0;
};

// The buttons of a set, left to right as the box shows them.
std::span<const MessageAnswer> buttonsOf(MessageButtons buttons);

// The button that has the focus when the box opens: the first of its set.
MessageAnswer defaultAnswer(MessageButtons buttons);

bool offers(MessageButtons buttons, MessageAnswer answer);

// "none", "critical", "question", "exclamation", "information": the words the
// headless host prints in its msgbox lines.
QString iconName(MessageIcon icon);

// "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No".
QString answerName(MessageAnswer answer);

// The answer named by a button name, in any letter case and with surrounding
// blanks ignored; nothing for any other text.
std::optional<MessageAnswer> parseAnswer(const QString& name);

} // namespace orbelan
