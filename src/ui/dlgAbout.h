#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace orbelan {

// The about box: the product's name and the component's version.
class dlgAbout : public QDialog {
    Q_OBJECT

public:
    // Shows the component's own version.
    explicit dlgAbout(QWidget* parent = nullptr);
    dlgAbout(int major, int minor, int revision, QWidget* parent = nullptr);

    // True from the moment the form loads until cmdOK confirms it; closing
    // the box any other way leaves it set.
    bool cancelled() const { return cancelled_; }

private:
    void buildLayout(QLabel* lblTitle, QLabel* lblVersion, QLabel* lblDescription, QLabel* lblDisclaimer,
                     QPushButton* cmdOK);
    void confirm();

    bool cancelled_ = true;
};

} // namespace orbelan
