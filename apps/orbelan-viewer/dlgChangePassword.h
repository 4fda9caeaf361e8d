#pragma once

#include "ui/OkCancelDialog.h"

class QLineEdit;

namespace orbelan {

class UiServices;

// Asks for the current password and the new one twice; OKButton closes it
// only when the two new ones agree and are not empty.
class dlgChangePassword : public OkCancelDialog {
    Q_OBJECT

public:
    explicit dlgChangePassword(UiServices& ui, QWidget* parent = nullptr);

    QString oldPassword() const;
    QString newPassword() const;

protected:
    bool acceptable() override;

private:
    UiServices& ui_;
    QLineEdit* txtOld_;
    QLineEdit* txtNew_;
    QLineEdit* txtConfirm_;
};

} // namespace orbelan
