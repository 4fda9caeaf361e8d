#pragma once

#include <QString>

#include <ostream>

namespace orbelan::server {

// The public data packages the United States and World demo maps are
// imported from (us-atlas and world-atlas, TopoJSON), fetched with npm into a
// folder of their own.
class DemoData {
public:
    static QString usAtlas(const QString& folder);
    static QString worldAtlas(const QString& folder);
    static bool present(const QString& folder);
    // Fetches the packages when they are missing; false, with the reason
    // reported, when npm cannot get them.
    static bool fetch(const QString& folder, std::ostream& report);
};

} // namespace orbelan::server
