#pragma once

#include <QDialog>

namespace orbelan {

// Shows the values of one element as a read-only text (txtInfoCampos).
// OKButton and Escape close it.
class dlgVerInfo : public QDialog {
    Q_OBJECT

public:
    explicit dlgVerInfo(const QString& text, QWidget* parent = nullptr);
};

} // namespace orbelan
