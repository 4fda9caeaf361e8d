#include "orbelan-viewer/WindowLogin.h"

#include "orbelan-viewer/HostOptions.h"
#include "orbelan-viewer/dlgLogin.h"
#include "ui/UiServices.h"
#include "viewer/Viewer.h"

#include <QSettings>

namespace orbelan {

namespace {

const QString kUrlKey = QStringLiteral("Login/URL");
const QString kPortKey = QStringLiteral("Login/Port");
const QString kUserKey = QStringLiteral("Login/User");

// The command line first, then what was remembered, then the demo's admin.
LoginDefaults defaultsOf(const Viewer& viewer, const HostOptions& options, const QSettings& settings)
{
    return {
        options.url.value_or(settings.value(kUrlKey, QStringLiteral("127.0.0.1")).toString()),
        options.port.value_or(settings.value(kPortKey, 10010).toInt()),
        options.userName.value_or(settings.value(kUserKey, QStringLiteral("admin")).toString()),
        options.map.value_or(viewer.MapCode()),
    };
}

bool logInWithPassword(Viewer& viewer, const HostOptions& options, const LoginDefaults& server, UiServices& ui)
{
    login control;
    control.setUiServices(ui);
    const auto answer = waitForLogin(control, server.url, server.port, server.user, *options.password);
    if (answer && answer->accepted()) {
        viewer.setURL(server.url);
        viewer.setPort(server.port);
        applyLogin(viewer, *answer, options.map);
        return true;
    }
    if (const QString failure = loginFailure(answer, control); !failure.isEmpty()) {
        ui.messageBox(nullptr, failure, MessageButtons::OK, MessageIcon::Exclamation, QStringLiteral("Log in"));
    }
    return false;
}

} // namespace

bool logInForWindow(Viewer& viewer, const HostOptions& options, UiServices& ui, QSettings& settings)
{
    const LoginDefaults defaults = defaultsOf(viewer, options, settings);
    if (options.password && logInWithPassword(viewer, options, defaults, ui)) {
        return true;
    }
    dlgLogin form(ui, defaults);
    if (ui.execDialog(form) != QDialog::Accepted) {
        return false;
    }
    viewer.setURL(form.url());
    viewer.setPort(form.port());
    viewer.setIDUser(form.userId());
    viewer.setMapCode(form.mapCode());
    settings.setValue(kUrlKey, form.url());
    settings.setValue(kPortKey, form.port());
    settings.setValue(kUserKey, form.userName());
    return true;
}

} // namespace orbelan
