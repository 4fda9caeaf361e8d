#include "orbelan-viewer/LoginWait.h"

#include "login/login.h"
#include "viewer/Viewer.h"

#include <QEventLoop>
#include <QTimer>

namespace orbelan {

namespace {

constexpr int kForeignAnswer = -1;
constexpr int kMandatoryUpdate = -2;

} // namespace

std::optional<LoginResult> waitForLogin(login& control, const QString& host, int port, const QString& user,
                                        const QString& password, std::chrono::milliseconds limit)
{
    std::optional<LoginResult> result;
    QEventLoop loop;
    const QMetaObject::Connection answered = QObject::connect(
        &control, &login::LoginResponse, &loop,
        [&](int id, int count, const QStringList& names, const QList<int>& codes) {
            result = LoginResult{id, count, names, codes};
            loop.quit();
        });
    control.Checklogin(host, port, user, password);
    if (!result && control.awaitingReply()) {
        QTimer::singleShot(limit, &loop, &QEventLoop::quit);
        loop.exec();
    }
    QObject::disconnect(answered);
    return result;
}

void applyLogin(Viewer& viewer, const LoginResult& answer, std::optional<int> map)
{
    viewer.setIDUser(answer.user);
    if (map && (answer.codes.isEmpty() || answer.codes.contains(*map))) {
        viewer.setMapCode(*map);
    } else if (!answer.codes.isEmpty()) {
        viewer.setMapCode(answer.codes.front());
    }
}

QString loginFailure(const std::optional<LoginResult>& answer, const login& control)
{
    if (!answer) {
        return control.awaitingReply() ? QStringLiteral("The map server did not answer the login.") : QString();
    }
    if (answer->accepted() || answer->user == kMandatoryUpdate) {
        return {};
    }
    return answer->user == kForeignAnswer ? QStringLiteral("The map server's answer was not a login answer.")
                                          : QStringLiteral("Login failed: unknown user name or wrong password.");
}

} // namespace orbelan
