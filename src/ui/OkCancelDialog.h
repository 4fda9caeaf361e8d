#pragma once

#include <QDialog>

class QBoxLayout;
class QPushButton;

namespace orbelan {

// A modal form that reports its outcome through a cancelled flag: set when
// the form loads, cleared only by OKButton. OKButton closes it once the
// fields are acceptable, CancelButton always. Subclasses put their fields
// above the two buttons.
class OkCancelDialog : public QDialog {
    Q_OBJECT

public:
    bool cancelled() const { return cancelled_; }

protected:
    OkCancelDialog(const QString& name, const QString& title, QWidget* parent);

    // The column the fields go into, above the row of buttons.
    QBoxLayout& fields() const { return *fields_; }
    QPushButton& okButton() const { return *okButton_; }
    // Whether OKButton may close the form; a form that refuses tells the
    // user why and stays open.
    virtual bool acceptable() { return true; }
    // What OKButton does before the form closes.
    virtual void confirm() {}

private:
    void confirmAndClose();

    QBoxLayout* fields_;
    QPushButton* okButton_;
    bool cancelled_ = true;
};

} // namespace orbelan
