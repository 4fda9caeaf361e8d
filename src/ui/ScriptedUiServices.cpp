#include "ui/ScriptedUiServices.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QStringList>
#include <QTextEdit>

#include <stdexcept>
#include <utility>

namespace orbelan {

namespace {

[[noreturn]] void refuse(const QString& reason)
{
    throw std::invalid_argument(reason.toStdString());
}

[[noreturn]] void refuseValue(const QWidget& field, const QString& value)
{
    refuse(QStringLiteral("field \"%1\" cannot take the value \"%2\"").arg(field.objectName(), value));
}

// findChild with an empty name matches any child, so an empty name is
// refused before the search.
QWidget& findField(QDialog& dialog, const QString& name)
{
    QWidget* field = name.isEmpty() ? nullptr : dialog.findChild<QWidget*>(name);
    if (field == nullptr)
        refuse(QStringLiteral("dialog \"%1\" has no field \"%2\"").arg(dialog.objectName(), name));
    return *field;
}

QAbstractButton& findButton(QDialog& dialog, const QString& name)
{
    QAbstractButton* button = name.isEmpty() ? nullptr : dialog.findChild<QAbstractButton*>(name);
    if (button == nullptr)
        refuse(QStringLiteral("dialog \"%1\" has no button \"%2\"").arg(dialog.objectName(), name));
    return *button;
}

// A person cannot click a disabled button, so a script may not either. The
// fields filled before may have enabled it, as they do for a person.
void click(QDialog& dialog, const QString& name)
{
    QAbstractButton& button = findButton(dialog, name);
    if (!button.isEnabled())
        refuse(QStringLiteral("button \"%1\" of dialog \"%2\" is disabled").arg(name, dialog.objectName()));
    button.click();
}

// Every name is looked up before any field changes, so a misspelt script
// leaves the dialog as it was.
void checkNames(QDialog& dialog, const DialogScript& script)
{
    for (const QString& name : script.fields.keys())
        findField(dialog, name);
    findButton(dialog, script.button);
}

// The item with exactly that text; otherwise a whole number in range picks
// the item at that 0-based index.
int itemIndexFor(const QComboBox& combo, const QString& value)
{
    const int byText = combo.findText(value);
    if (byText >= 0)
        return byText;
    bool isNumber = false;
    const int byIndex = value.toInt(&isNumber);
    return isNumber && byIndex >= 0 && byIndex < combo.count() ? byIndex : -1;
}

void chooseInCombo(QComboBox& combo, const QString& value)
{
    const int index = itemIndexFor(combo, value);
    if (index >= 0)
        combo.setCurrentIndex(index);
    else if (combo.isEditable())
        combo.setEditText(value);
    else
        refuseValue(combo, value);
}

void setCheckedFrom(QAbstractButton& button, const QString& value)
{
    static const QStringList checkedWords{"1", "-1", "true", "yes"};
    static const QStringList clearedWords{"0", "false", "no", ""};
    if (!button.isCheckable())
        refuse(QStringLiteral("\"%1\" is a button that cannot be checked, not a field").arg(button.objectName()));
    if (checkedWords.contains(value, Qt::CaseInsensitive))
        button.setChecked(true);
    else if (clearedWords.contains(value, Qt::CaseInsensitive))
        button.setChecked(false);
    else
        refuseValue(button, value);
}

void setSpinValue(QSpinBox& spin, const QString& value)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!isNumber || number < spin.minimum() || number > spin.maximum())
        refuseValue(spin, value);
    spin.setValue(number);
}

void setSpinValue(QDoubleSpinBox& spin, const QString& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || number < spin.minimum() || number > spin.maximum())
        refuseValue(spin, value);
    spin.setValue(number);
}

// "ROW" or "ROW,COLUMN" (0-based, in the order shown) makes that item
// current, as a click does; ",dblclick" after them double-clicks it. A list
// also takes the text of one of its items.
void chooseInView(QAbstractItemView& view, const QString& value)
{
    QAbstractItemModel* model = view.model();
    if (model == nullptr)
        refuseValue(view, value);
    QModelIndex item;
    const QModelIndexList byText = model->match(model->index(0, 0), Qt::DisplayRole, value, 1, Qt::MatchExactly);
    QStringList parts = value.split(QLatin1Char(','));
    const bool doubleClick = parts.size() > 1 && parts.back() == QLatin1String("dblclick");
    if (doubleClick)
        parts.removeLast();
    bool rowIsNumber = false;
    bool columnIsNumber = true;
    const int row = parts.front().toInt(&rowIsNumber);
    const int column = parts.size() > 1 ? parts[1].toInt(&columnIsNumber) : 0;
    if (!byText.isEmpty() && !doubleClick)
        item = byText.front();
    else if (rowIsNumber && columnIsNumber && parts.size() <= 2)
        item = model->index(row, column);
    if (!item.isValid())
        refuseValue(view, value);
    view.setCurrentIndex(item);
    if (doubleClick)
        emit view.doubleClicked(item);
}

void fillField(QWidget& field, const QString& value)
{
    if (auto* line = qobject_cast<QLineEdit*>(&field))
        line->setText(value);
    else if (auto* text = qobject_cast<QTextEdit*>(&field))
        text->setPlainText(value);
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(&field))
        plain->setPlainText(value);
    else if (auto* combo = qobject_cast<QComboBox*>(&field))
        chooseInCombo(*combo, value);
    else if (auto* button = qobject_cast<QAbstractButton*>(&field))
        setCheckedFrom(*button, value);
    else if (auto* spin = qobject_cast<QSpinBox*>(&field))
        setSpinValue(*spin, value);
    else if (auto* doubleSpin = qobject_cast<QDoubleSpinBox*>(&field))
        setSpinValue(*doubleSpin, value);
    else if (auto* view = qobject_cast<QAbstractItemView*>(&field))
        chooseInView(*view, value);
    else
        refuse(QStringLiteral("field \"%1\" is a %2, which a script cannot fill")
                   .arg(field.objectName(), QString::fromLatin1(field.metaObject()->className())));
}

// Fields are looked up again one by one as they are filled: a field's change
// handler may rebuild other widgets of the dialog.
void runScript(QDialog& dialog, const DialogScript& script)
{
    if (!script.dialog.isEmpty() && script.dialog != dialog.objectName())
        refuse(QStringLiteral("a script for dialog \"%1\" met dialog \"%2\"").arg(script.dialog, dialog.objectName()));
    checkNames(dialog, script);
    for (auto field = script.fields.cbegin(); field != script.fields.cend(); ++field)
        fillField(findField(dialog, field.key()), field.value());
    click(dialog, script.button);
}

} // namespace

MessageAnswer ScriptedUiServices::messageBox(QWidget*, const QString& text, MessageButtons buttons,
                                             MessageIcon icon, const QString& caption)
{
    const ShownMessage shown{icon, caption, text, buttons, takeAnswer(buttons)};
    messages_.push_back(shown);
    if (messageObserver_)
        messageObserver_(shown);
    return shown.answer;
}

int ScriptedUiServices::execDialog(QDialog& dialog)
{
    recordDialog(dialog);
    dialog.setResult(QDialog::Rejected);
    // done() ends a dialog, whichever slot calls it. The context object drops
    // the connection when this call ends, also when a script throws.
    QObject watch;
    bool ended = false;
    QObject::connect(&dialog, &QDialog::finished, &watch, [&ended] { ended = true; });
    while (!ended && !scripts_.empty()) {
        const DialogScript script = std::move(scripts_.front());
        scripts_.pop_front();
        runScript(dialog, script);
    }
    if (!ended)
        dialog.reject();
    return dialog.result();
}

void ScriptedUiServices::popupMenu(QMenu& menu, const QPoint&)
{
    const ShownMenu shown{menu.objectName(), menu.title()};
    menus_.push_back(shown);
    if (menuObserver_)
        menuObserver_(shown);
}

void ScriptedUiServices::queueAnswer(MessageAnswer answer)
{
    answers_.push_back(answer);
}

void ScriptedUiServices::queueDialog(DialogScript script)
{
    scripts_.push_back(std::move(script));
}

void ScriptedUiServices::setMessageObserver(std::function<void(const ShownMessage&)> observer)
{
    messageObserver_ = std::move(observer);
}

void ScriptedUiServices::setDialogObserver(std::function<void(const ShownDialog&)> observer)
{
    dialogObserver_ = std::move(observer);
}

void ScriptedUiServices::setMenuObserver(std::function<void(const ShownMenu&)> observer)
{
    menuObserver_ = std::move(observer);
}

MessageAnswer ScriptedUiServices::takeAnswer(MessageButtons buttons)
{
    if (answers_.empty() || !offers(buttons, answers_.front()))
        return defaultAnswer(buttons);
    const MessageAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

void ScriptedUiServices::recordDialog(const QDialog& dialog)
{
    const ShownDialog shown{dialog.objectName(), dialog.windowTitle()};
    dialogs_.push_back(shown);
    if (dialogObserver_)
        dialogObserver_(shown);
}

} // namespace orbelan
