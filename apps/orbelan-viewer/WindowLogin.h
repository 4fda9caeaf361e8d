#pragma once

#include "orbelan-viewer/LoginWait.h"

class QSettings;

namespace orbelan {

struct HostOptions;
class UiServices;
class Viewer;

// Before the window shows the map: a login with --user and --password, or
// else the login form until the server accepts a user. A failed login with
// --password is told and the form opens. The server and user name of an
// accepted form are remembered in the settings (never the password). False
// when the form was cancelled.
bool logInForWindow(Viewer& viewer, const HostOptions& options, UiServices& ui, QSettings& settings);

} // namespace orbelan
