#include "orbelan-viewer/dlgLogin.h"

#include "ui/UiServices.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPushButton>

namespace orbelan {

namespace {

constexpr int kHighestPort = 65535;

QLineEdit* lineEdit(const QString& name, const QString& text, QWidget* parent)
{
    auto* edit = new QLineEdit(text, parent);
    edit->setObjectName(name);
    return edit;
}

} // namespace

dlgLogin::dlgLogin(UiServices& ui, const LoginDefaults& defaults, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgLogin"), QStringLiteral("Log in"), parent),
      ui_(ui),
      rememberedMap_(defaults.mapCode),
      txtURL_(lineEdit(QStringLiteral("txtURL"), defaults.url, this)),
      txtPort_(lineEdit(QStringLiteral("txtPort"), QString::number(defaults.port), this)),
      txtUser_(lineEdit(QStringLiteral("txtUser"), defaults.user, this)),
      txtPassword_(lineEdit(QStringLiteral("txtPassword"), QString(), this)),
      cboMap_(new QComboBox(this))
{
    control_.setUiServices(ui);
    txtPort_->setValidator(new QIntValidator(0, kHighestPort, txtPort_));
    txtPassword_->setEchoMode(QLineEdit::Password);
    cboMap_->setObjectName(QStringLiteral("cboMap"));
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Server"), txtURL_);
    form->addRow(QStringLiteral("Port"), txtPort_);
    form->addRow(QStringLiteral("User"), txtUser_);
    form->addRow(QStringLiteral("Password"), txtPassword_);
    form->addRow(QStringLiteral("Map"), cboMap_);
    fields().addLayout(form);
    for (QLineEdit* edit : {txtURL_, txtPort_, txtUser_, txtPassword_}) {
        connect(edit, &QLineEdit::textChanged, this, &dlgLogin::startAgain);
    }
    startAgain();
    (defaults.user.isEmpty() ? txtUser_ : txtPassword_)->setFocus();
}

QString dlgLogin::url() const { return txtURL_->text().trimmed(); }
int dlgLogin::port() const { return txtPort_->text().toInt(); }
QString dlgLogin::userName() const { return txtUser_->text(); }

int dlgLogin::mapCode() const
{
    return cboMap_->count() > 0 ? cboMap_->currentData().toInt() : rememberedMap_;
}

// The first OK logs in; the form closes once the user is known and, when
// the server offers maps, one of them has been seen in the list.
bool dlgLogin::acceptable()
{
    if (answer_ && answer_->accepted()) {
        return true;
    }
    logIn();
    return answer_ && answer_->accepted() && answer_->names.isEmpty();
}

void dlgLogin::logIn()
{
    answer_ = waitForLogin(control_, url(), port(), userName(), txtPassword_->text());
    if (answer_ && answer_->accepted()) {
        offerMaps();
    } else if (const QString failure = loginFailure(answer_, control_); !failure.isEmpty()) {
        ui_.messageBox(this, failure, MessageButtons::OK, MessageIcon::Exclamation, windowTitle());
    }
}

void dlgLogin::offerMaps()
{
    cboMap_->clear();
    for (qsizetype i = 0; i < answer_->names.size() && i < answer_->codes.size(); ++i) {
        cboMap_->addItem(answer_->names[i], answer_->codes[i]);
    }
    const int remembered = cboMap_->findData(rememberedMap_);
    cboMap_->setCurrentIndex(remembered >= 0 ? remembered : 0);
    cboMap_->setEnabled(true);
    cboMap_->setFocus();
    okButton().setText(QStringLiteral("Open map"));
}

void dlgLogin::startAgain()
{
    answer_.reset();
    cboMap_->clear();
    cboMap_->setEnabled(false);
    okButton().setText(QStringLiteral("Log in"));
}

} // namespace orbelan
