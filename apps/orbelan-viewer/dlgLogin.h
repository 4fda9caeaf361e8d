#pragma once

#include "login/login.h"
#include "orbelan-viewer/LoginWait.h"
#include "ui/OkCancelDialog.h"

class QComboBox;
class QLineEdit;

namespace orbelan {

class UiServices;

// Where a login starts: the server, the user and the map remembered last.
struct LoginDefaults {
    QString url;
    int port = 0;
    QString user;
    int mapCode = 0;
};

// The host's login form, built on the login control. OKButton first logs
// in with the server, user name and password typed; once the server has
// accepted them it lists the user's maps and the next OKButton opens the
// one chosen. A refused login is told and the form stays; changing the
// server or the user name or password starts again.
class dlgLogin : public OkCancelDialog {
    Q_OBJECT

public:
    dlgLogin(UiServices& ui, const LoginDefaults& defaults, QWidget* parent = nullptr);

    // After an accepted form: what was typed, the user's id and the map chosen.
    QString url() const;
    int port() const;
    QString userName() const;
    int userId() const { return answer_ ? answer_->user : 0; }
    int mapCode() const;

protected:
    bool acceptable() override;

private:
    void logIn();
    void offerMaps();
    void startAgain();

    UiServices& ui_;
    login control_;
    int rememberedMap_;
    std::optional<LoginResult> answer_;
    QLineEdit* txtURL_;
    QLineEdit* txtPort_;
    QLineEdit* txtUser_;
    QLineEdit* txtPassword_;
    QComboBox* cboMap_;
};

} // namespace orbelan
