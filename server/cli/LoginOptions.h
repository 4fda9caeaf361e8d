#pragma once

#include "login/LoginPolicy.h"

#include <QCommandLineParser>

namespace orbelan::server {

// The serve command's options for logging in: how long a login lets its
// address in, whether user ids are trusted without one, and the client
// version a login announces.
class LoginOptions {
public:
    static void add(QCommandLineParser& parser);
    // Throws std::invalid_argument naming an option whose value is wrong.
    static LoginPolicy read(const QCommandLineParser& parser);
};

} // namespace orbelan::server
