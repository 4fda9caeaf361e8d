#pragma once

#include "protocol/messages/SaveMapRequest.h"
#include "storage/Database.h"

#include <QSqlQuery>

#include <cstdint>
#include <string>

namespace orbelan::server {

// Stores a map as a user configured it under a new map code, owned by that
// user. The new map has no layers of its own: each of its layers is a layer
// of the map it was made from (same id, geometry, fields and attributes)
// with the saved settings and classes. The name, type and grid of a layer
// stay the stored ones whatever the request says.
class SavedMapWriter {
public:
    struct Outcome {
        enum class Kind { Saved, InvalidName, ForeignLayer };
        Kind kind = Kind::Saved;
        // The new map's code, once saved.
        std::int32_t map = 0;
    };

    explicit SavedMapWriter(Database& database);

    // In one transaction: InvalidName, with nothing stored, for a name that
    // is empty (or blank) or already the name of one of the user's maps;
    // ForeignLayer for a layer that is not one of the source map's or comes
    // twice. Throws StorageError when the store fails, with nothing stored.
    Outcome save(const messages::SaveMapRequest& request);

private:
    bool nameTaken(std::int32_t user, const QString& name);
    bool layersBelongTo(const messages::SaveMapRequest& request);
    std::int32_t insertMap(const messages::SaveMapRequest& request, const QString& name);
    void insertLayer(std::int32_t map, std::int32_t position, const messages::SavedLayerRecord& layer);

    Database& database_;
    QSqlQuery nameTaken_;
    QSqlQuery sourceLayers_;
    QSqlQuery nextCode_;
    QSqlQuery insertMap_;
    QSqlQuery grant_;
    QSqlQuery insertLayer_;
    QSqlQuery insertClass_;
};

} // namespace orbelan::server
