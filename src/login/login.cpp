#include "login/login.h"

#include "login/LoginOutcome.h"
#include "login/LoginReplyCollector.h"
#include "protocol/ConnectToServer.h"
#include "protocol/Socket.h"
#include "protocol/messages/LoginRequest.h"
#include "protocol/messages/MessageIO.h"
#include "ui/ConnectionFailure.h"
#include "ui/WidgetUiServices.h"
#include "version/OrbelanVersion.h"

#include <QtDebug>

#include <exception>
#include <limits>

namespace orbelan {

namespace {

const QString kUpdateCaption = QStringLiteral("Orbelan Inc.");

QString noticeText(UpdateNotice notice)
{
    return notice == UpdateNotice::Mandatory ? QStringLiteral("Imprescindible Instalar nueva version")
                                             : QStringLiteral("Recomendable Instalar nueva version");
}

} // namespace

login::login(QWidget* parent)
    : QWidget(parent),
      ownUi_(std::make_unique<WidgetUiServices>()),
      ui_(ownUi_.get()),
      socket_(std::make_unique<Socket>()),
      reply_(std::make_unique<LoginReplyCollector>()),
      clientVersion_(version::kMajor, version::kMinor, version::kRevision)
{
    connect(socket_.get(), &Socket::DataArrival, this, &login::onDataArrival);
    connect(socket_.get(), &Socket::StateChanged, this, &login::onStateChanged);
}

login::~login()
{
    awaitingReply_ = false;
    socket_->disconnect(this);
    socket_->Close();
}

void login::setUiServices(UiServices& services)
{
    ui_ = &services;
}

// The parameter the host knows as login is named apart here, where "login"
// is the class.
void login::Checklogin(const QString& RemoteHost, int RemotePort, const QString& userName, const QString& passwd)
{
    awaitingReply_ = false;
    socket_->Close();
    const bool validPort = RemotePort >= 0 && RemotePort <= std::numeric_limits<quint16>::max();
    if (!validPort || !ConnectToServer(*socket_, RemoteHost, static_cast<quint16>(RemotePort))) {
        socket_->Close();
        showConnectionFailure(*ui_, this);
        return;
    }
    sendLogin(userName, passwd);
}

void login::sendLogin(const QString& user, const QString& password)
{
    reply_->reset();
    awaitingReply_ = true;
    const DWBUffer request = messages::buildMessage(messages::LoginRequest{user.toStdString(), password.toStdString()});
    socket_->SendData(request.bytes());
}

// No exception leaves for Qt: whatever goes wrong with the reply makes it a
// foreign one.
void login::onDataArrival()
{
    if (!awaitingReply_) {
        socket_->GetData();
        return;
    }
    try {
        const LoginReplyCollector::Progress progress = reply_->feed(socket_->GetData());
        if (progress == LoginReplyCollector::Progress::Complete) {
            finish(interpretLoginReply(reply_->reply(), clientVersion_));
        } else if (progress == LoginReplyCollector::Progress::Foreign) {
            finish(LoginOutcome::foreign());
        }
    } catch (const std::exception& error) {
        qWarning("login: the reply could not be read: %s", error.what());
        finish(LoginOutcome::foreign());
    }
}

// A connection that ends or fails while the reply is awaited brings no answer.
void login::onStateChanged(int state)
{
    if (awaitingReply_ && (state == kSocketClosed || state == kSocketError)) {
        finish(LoginOutcome::foreign());
    }
}

void login::finish(const LoginOutcome& outcome)
{
    awaitingReply_ = false;
    if (outcome.notice != UpdateNotice::None) {
        ui_->messageBox(this, noticeText(outcome.notice), MessageButtons::OK, MessageIcon::Critical, kUpdateCaption);
    }
    socket_->Close();
    emit LoginResponse(outcome.userId, outcome.mapCount, outcome.mapNames, outcome.mapCodes);
}

} // namespace orbelan
