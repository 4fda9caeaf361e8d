#pragma once

#include <QStringList>

namespace orbelan::server {

// orbelan-server import --db FILE --map CODE [--layer-name NAME] [--label-field F]
//                       [--theme-field F] [--source-layer NAME] [--map-name NAME]
//                       [--projection N] SOURCE
class ImportCommand {
public:
    static int run(const QStringList& arguments);
};

} // namespace orbelan::server
