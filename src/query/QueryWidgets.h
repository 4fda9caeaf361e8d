#pragma once

#include <QString>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace orbelan::querywidgets {

// The controls of the query dialogs, each with its object name.
QComboBox* comboBox(const char* name, QWidget* parent);
QLineEdit* lineEdit(const char* name, const QString& text, QWidget* parent);
QLabel* label(const char* name, const QString& text, QWidget* parent);
// A button that Enter does not click unless it is made the default.
QPushButton* button(const char* name, const QString& caption, QWidget* parent);
// Selects the item with the text, or the first when none has it; true when
// one had it.
bool selectOrFirst(QComboBox& box, const QString& text);

} // namespace orbelan::querywidgets
