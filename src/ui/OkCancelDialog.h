#pragma once

#include <QDialog>

class QBoxLayout;
class QPushButton;

namespace orbelan {

// A modal form that reports its outcome through a cancelled flag: set when
// the form loads, cleared only by OKButton. OKButton and CancelButton both
// close it. Subclasses put their fields above the two buttons.
class OkCancelDialog : public QDialog {
    Q_OBJECT

public:
    bool cancelled() const { return cancelled_; }

protected:
    OkCancelDialog(const QString& name, const QString& title, QWidget* parent);

    // The column the fields go into, above the row of buttons.
    QBoxLayout& fields() const { return *fields_; }
    QPushButton& okButton() const { return *okButton_; }
    // What OKButton does before the form closes.
    virtual void confirm() {}

private:
    void confirmAndClose();

    QBoxLayout* fields_;
    QPushButton* okButton_;
    bool cancelled_ = true;
};

} // namespace orbelan
