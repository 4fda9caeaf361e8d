#include "ui/OkCancelDialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace orbelan {

OkCancelDialog::OkCancelDialog(const QString& name, const QString& title, QWidget* parent)
    : QDialog(parent),
      fields_(new QVBoxLayout),
      okButton_(new QPushButton(QStringLiteral("OK"), this))
{
    setObjectName(name);
    setWindowTitle(title);
    okButton_->setObjectName(QStringLiteral("OKButton"));
    okButton_->setDefault(true);
    auto* cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    cancelButton->setObjectName(QStringLiteral("CancelButton"));
    connect(okButton_, &QPushButton::clicked, this, &OkCancelDialog::confirmAndClose);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(okButton_);
    buttons->addWidget(cancelButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields_);
    layout->addLayout(buttons);
}

void OkCancelDialog::confirmAndClose()
{
    if (!acceptable()) {
        return;
    }
    confirm();
    cancelled_ = false;
    accept();
}

} // namespace orbelan
