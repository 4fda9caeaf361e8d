#pragma once

#include "storage/Database.h"

#include <QString>

#include <ostream>

namespace orbelan::server {

class SantiagoGenerator;

// Builds the demo maps and users into a map store, replacing the demo maps
// it may already hold, in one transaction, and says what it built and what
// it skipped.
//
// Users: 1 "admin" draws on every layer, 2 "visor" views every layer, and
// 3 "invitado" may not open Santiago (the refused access shows) but views
// every other demo map.
class DemoBuilder {
public:
    static constexpr std::int32_t kAdmin = 1;
    static constexpr std::int32_t kViewer = 2;
    static constexpr std::int32_t kGuest = 3;

    DemoBuilder(Database& database, std::ostream& report);

    // Imports the United States and World maps from the data folder when it
    // holds the data packages (DemoData), and says it skipped them otherwise.
    // With an image folder, Santiago's shaded relief is written there (the
    // folder is made when missing); its layer is in the map either way.
    void build(const QString& dataFolder = {}, const QString& imageFolder = {});

private:
    void importAtlases(const QString& dataFolder);
    void addUsers();
    void writeRelief(const SantiagoGenerator& santiago, const QString& imageFolder);

    Database& database_;
    std::ostream& report_;
};

} // namespace orbelan::server
