#pragma once

#include "ui/OkCancelDialog.h"

#include <QColor>

class QColorDialog;
class QLineEdit;

namespace orbelan {

// Asks for a colour: Qt's colour picker, and the box txtColor that holds the
// colour as "#rrggbb" and takes one typed (or put in by a script).
class dlgColor : public OkCancelDialog {
    Q_OBJECT

public:
    dlgColor(const QColor& initial, QWidget* parent);

    QColor colour() const;

private:
    void takeTypedColour(const QString& text);

    QColorDialog* picker_;
    QLineEdit* text_;
};

} // namespace orbelan
