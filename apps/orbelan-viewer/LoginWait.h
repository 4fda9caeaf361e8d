#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace orbelan {

class Viewer;
class login;

// The arguments of one LoginResponse.
struct LoginResult {
    int user = -1;
    int count = -1;
    QStringList names;
    QList<int> codes;

    bool accepted() const { return user >= 1; }
};

// How long a host waits for the answer to a login once its request has left.
constexpr std::chrono::seconds kLoginAnswerLimit(30);

// Runs one Checklogin on the control and waits, with the event loop
// running, for its LoginResponse. Nothing when the server could not be
// reached (the control has told the user) or no answer came within the limit.
std::optional<LoginResult> waitForLogin(login& control, const QString& host, int port, const QString& user,
                                        const QString& password,
                                        std::chrono::milliseconds limit = kLoginAnswerLimit);

// What to tell the user about a login that was not accepted: empty when
// it was, or when the control has told it already (no server, an update
// needed).
QString loginFailure(const std::optional<LoginResult>& answer, const login& control);

// The user of an accepted login goes to the control, and a map: the one
// asked for when the server offers it or offers none, else the first offered.
void applyLogin(Viewer& viewer, const LoginResult& answer, std::optional<int> map);

} // namespace orbelan
