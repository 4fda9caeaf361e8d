#pragma once

#include <QStringList>

namespace orbelan::server {

// orbelan-server user add --db FILE --name NAME [--id ID]
// orbelan-server user grant --db FILE --user ID --map CODE [--level 0-3 [--layer ID]]
// orbelan-server user passwd --db FILE --name NAME  (the password on stdin)
class UserCommand {
public:
    // arguments: the program name, then the action and its arguments.
    static int run(const QStringList& arguments);

private:
    static int add(const QStringList& arguments);
    static int grant(const QStringList& arguments);
    static int passwd(const QStringList& arguments);
};

} // namespace orbelan::server
