#pragma once

#include "ui/OkCancelDialog.h"

class QLineEdit;

namespace orbelan {

// Asks for the offset of the next point from the nearest vertex, in the
// units of the map's plane: txtXCoord east, txtYCoord north, both "0" at
// first and taking only the keys of a decimal number.
class dlgRelativeTo : public OkCancelDialog {
    Q_OBJECT

public:
    explicit dlgRelativeTo(QWidget* parent = nullptr);

    QString xText() const;
    QString yText() const;

private:
    QLineEdit* txtXCoord_;
    QLineEdit* txtYCoord_;
};

} // namespace orbelan
