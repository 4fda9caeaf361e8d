#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVersionNumber>
#include <QWidget>

#include <memory>

namespace orbelan {

class LoginReplyCollector;
class Socket;
class UiServices;
struct LoginOutcome;

// The login control: it asks the map server, on a short connection of its
// own, who a user is, whether this client must or should be updated, and
// which maps the user may open, and reports all of it with LoginResponse.
// The host then gives the user's id and a chosen map to a Viewer.
//
// Each Checklogin is one exchange: connect, send the name and password,
// collect the one reply, close, raise the event. A server that cannot be
// reached gets the connection failure message and no event. A reply that is
// not a whole login answer, or a connection that ends before one arrived,
// is reported as LoginResponse(-1, -1) with no maps.
class login : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QVersionNumber clientVersion READ clientVersion WRITE setClientVersion)

public:
    explicit login(QWidget* parent = nullptr);
    ~login() override;

    // Message boxes go through these services (not owned); by default real
    // widgets are used.
    void setUiServices(UiServices& services);

    // The version the server's answer is compared with: the component's own
    // unless set.
    QVersionNumber clientVersion() const { return clientVersion_; }
    void setClientVersion(const QVersionNumber& version) { clientVersion_ = version; }

    // A reply is awaited: LoginResponse is still to come.
    bool awaitingReply() const { return awaitingReply_; }

    // Starts an exchange, ending one still under way without its event.
    // Returns once the request has left, or after the connection failure
    // message; the answer comes with LoginResponse.
    Q_INVOKABLE void Checklogin(const QString& RemoteHost, int RemotePort, const QString& login,
                                const QString& passwd);

signals:
    // LIDUser: the user's id; below 1 the login failed (-1 a foreign reply,
    // -2 this client must be updated). iCantMapas: the number of maps, 0
    // for a refused login, -1 with -1 and -2.
    void LoginResponse(int LIDUser, int iCantMapas, const QStringList& sMapNames, const QList<int>& lMapCodes);

private:
    void sendLogin(const QString& user, const QString& password);
    void onDataArrival();
    void onStateChanged(int state);
    void finish(const LoginOutcome& outcome);

    std::unique_ptr<UiServices> ownUi_;
    UiServices* ui_;
    std::unique_ptr<Socket> socket_;
    std::unique_ptr<LoginReplyCollector> reply_;
    QVersionNumber clientVersion_;
    bool awaitingReply_ = false;
};

} // namespace orbelan
