#pragma once

#include <QString>

class QLineEdit;
class QWidget;

namespace orbelan {

// A box for a number with decimals, "0" at first, that refuses the keys
// such a number cannot take.
QLineEdit* decimalBox(const QString& name, QWidget* parent);

} // namespace orbelan
