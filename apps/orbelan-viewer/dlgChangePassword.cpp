#include "orbelan-viewer/dlgChangePassword.h"

#include "ui/UiServices.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QLineEdit>

namespace orbelan {

namespace {

QLineEdit* passwordBox(const QString& name, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    edit->setEchoMode(QLineEdit::Password);
    return edit;
}

} // namespace

dlgChangePassword::dlgChangePassword(UiServices& ui, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgChangePassword"), QStringLiteral("Change Password"), parent),
      ui_(ui),
      txtOld_(passwordBox(QStringLiteral("txtOld"), this)),
      txtNew_(passwordBox(QStringLiteral("txtNew"), this)),
      txtConfirm_(passwordBox(QStringLiteral("txtConfirm"), this))
{
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Current password"), txtOld_);
    form->addRow(QStringLiteral("New password"), txtNew_);
    form->addRow(QStringLiteral("Confirm new password"), txtConfirm_);
    fields().addLayout(form);
}

QString dlgChangePassword::oldPassword() const { return txtOld_->text(); }
QString dlgChangePassword::newPassword() const { return txtNew_->text(); }

bool dlgChangePassword::acceptable()
{
    QString problem;
    if (txtNew_->text().isEmpty()) {
        problem = QStringLiteral("The new password cannot be empty.");
    } else if (txtNew_->text() != txtConfirm_->text()) {
        problem = QStringLiteral("The new password and its confirmation differ.");
    }
    if (!problem.isEmpty()) {
        ui_.messageBox(this, problem, MessageButtons::OK, MessageIcon::Exclamation, windowTitle());
    }
    return problem.isEmpty();
}

} // namespace orbelan
