#pragma once

#include <QStringList>

namespace orbelan::server {

// The commands of orbelan-server: serve, demo, user; each with --help.
class CommandLine {
public:
    // arguments as the program received them; returns the exit status.
    static int run(const QStringList& arguments);
};

} // namespace orbelan::server
