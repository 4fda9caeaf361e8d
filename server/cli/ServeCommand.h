#pragma once

#include <QStringList>

namespace orbelan::server {

// orbelan-server serve --db FILE [--listen ADDR] [--port N] [--verbose] [limits]
class ServeCommand {
public:
    static constexpr quint16 kDefaultPort = 10010;

    // arguments: the program name, then the command's own arguments.
    static int run(const QStringList& arguments);
};

} // namespace orbelan::server
