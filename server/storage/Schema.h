#pragma once

#include <QStringList>

namespace orbelan::server {

// The tables of the map store (described in docs/server.md). Every statement
// is idempotent, so opening an existing store runs them again harmlessly. The
// typed attribute table of each layer is made by AttributeTable.
class Schema {
public:
    static const QStringList& statements();
};

} // namespace orbelan::server
