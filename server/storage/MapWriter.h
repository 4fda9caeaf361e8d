#pragma once

#include "storage/Database.h"
#include "grid/GridCells.h"
#include "protocol/messages/MapDefinition.h"
#include "storage/StoredElement.h"

#include <QSqlQuery>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace orbelan::server {

// Everything that changes the map store. Each operation runs in a
// transaction of its own, or joins the one its caller opened, so that a
// whole import or demo build is undone when any part of it fails.
class MapWriter {
public:
    // An element may be filed in at most this many cells.
    static constexpr std::size_t kMaximumCellsPerElement = 1'000'000;

    explicit MapWriter(Database& database);

    // Returns the user's id (the given one, or the next free one).
    std::int32_t addUser(const QString& name, std::optional<std::int32_t> id = std::nullopt);
    // Adds the user under the id, or renames the user who has it.
    void ensureUser(std::int32_t id, const QString& name);
    void grantMap(std::int32_t user, std::int32_t map);
    // Sets the level (0 to 3) on one layer.
    void setLayerLevel(std::int32_t user, std::int32_t layer, std::int16_t level);
    // Sets the level on every layer of the map.
    void setMapLevel(std::int32_t user, std::int32_t map, std::int16_t level);

    // A new map from the header fields of the definition (its layers are
    // added one by one).
    void createMap(std::int32_t code, const messages::MapDefinition& header);
    // Removes a map with its layers, elements, cells and attribute tables.
    void removeMap(std::int32_t code);
    bool mapExists(std::int32_t code);
    // Grows the map's extent to cover the box; a new map (extent all zero)
    // takes the box as it is.
    void extendMapExtent(std::int32_t code, const Extent& box);
    // Sets the box the map opens on, whatever its data cover.
    void setMapExtent(std::int32_t code, const Extent& box);
    // Appends a layer to the map's drawing order with its fields, its classes
    // and its attribute table; its id is the record's when above 0, else the
    // next free one, and is returned. The grid bounds of the record are not
    // stored: they follow from the cells.
    std::int32_t addLayer(std::int32_t map, const messages::LayerRecord& layer);
    // Stores the element and its attributes and files it in every cell its
    // bounding box touches.
    void addElement(std::int32_t layer, const StoredElement& element);
    // Indexes every attribute column that has no index yet.
    void indexAttributes();
    // Gives every listed element of the layer the values, by stored field
    // name; ids without an element are passed over.
    void updateAttributes(std::int32_t layer, const std::vector<std::pair<QString, QVariant>>& values,
                          const std::vector<std::int32_t>& elements);

private:
    struct LayerTarget {
        GridCells grid;
        std::size_t fieldCount;
        QSqlQuery insertAttributes;
    };

    void insertLayerRow(std::int32_t map, const messages::LayerRecord& layer, std::int32_t id);
    void insertFieldsAndClasses(std::int32_t id, const messages::LayerRecord& layer);
    LayerTarget& targetOf(std::int32_t layer);
    void insertAttributes(LayerTarget& target, const StoredElement& element);

    Database& database_;
    QSqlQuery insertElement_;
    QSqlQuery fileElement_;
    std::map<std::int32_t, LayerTarget> targets_;
};

} // namespace orbelan::server
