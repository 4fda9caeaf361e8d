#include "ui/dlgVerInfo.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orbelan {

dlgVerInfo::dlgVerInfo(const QString& text, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("dlgVerInfo"));
    setWindowTitle(QStringLiteral("Information"));
    auto* txtInfoCampos = new QPlainTextEdit(text, this);
    txtInfoCampos->setObjectName(QStringLiteral("txtInfoCampos"));
    txtInfoCampos->setReadOnly(true);
    auto* okButton = new QPushButton(QStringLiteral("OK"), this);
    okButton->setObjectName(QStringLiteral("OKButton"));
    okButton->setDefault(true);
    connect(okButton, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(okButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtInfoCampos);
    layout->addLayout(buttons);
    resize(360, 300);
}

} // namespace orbelan
