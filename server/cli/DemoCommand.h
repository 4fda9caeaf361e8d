#pragma once

#include <QStringList>

namespace orbelan::server {

// orbelan-server demo --db FILE
class DemoCommand {
public:
    static int run(const QStringList& arguments);
};

} // namespace orbelan::server
