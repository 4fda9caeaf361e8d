#pragma once

#include "protocol/messages/CellElement.h"
#include "protocol/messages/ElementBoundingBox.h"
#include "storage/Database.h"
#include "storage/LayerFields.h"
#include "protocol/messages/MapDefinition.h"

#include <QSqlQuery>
#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <unordered_map>
#include <vector>

namespace orbelan::server {

// The element id and the text of one attribute value of a cell.
using CellValue = std::pair<std::int32_t, std::string>;

// Everything the server reads from the map store to answer requests. The
// statements are prepared once and bound for every request.
class MapReader {
public:
    // The lowest and highest row and column of the cells that hold a layer's
    // elements; an empty range for a layer without any.
    struct GridBounds {
        std::int32_t minRow = 0;
        std::int32_t maxRow = -1;
        std::int32_t minColumn = 0;
        std::int32_t maxColumn = -1;

        bool holds(std::int32_t row, std::int32_t column) const
        {
            return row >= minRow && row <= maxRow && column >= minColumn && column <= maxColumn;
        }
    };

    explicit MapReader(Database& database);

    // The user exists and has been given access to the map.
    bool mayOpen(std::int32_t user, std::int32_t map);
    // The map with its layers in drawing order, their fields, their classes
    // after the default one, and grid bounds that span exactly the cells
    // holding data; nothing for an unknown map.
    std::optional<messages::MapDefinition> mapDefinition(std::int32_t map);
    // The user's levels on the layers of the map, by layer id; a layer the
    // user has been given no level on (or level 0) is left out.
    std::unordered_map<std::int32_t, std::int16_t> layerLevels(std::int32_t user, std::int32_t map);
    GridBounds gridBounds(std::int32_t layer);
    // The elements filed in the cell, by id.
    std::vector<messages::CellElement> cellElements(std::int32_t layer, std::int32_t row,
                                                    std::int32_t column);
    // The element's stored bounding box in degrees; nothing when the layer
    // has no such element.
    std::optional<messages::ElementBoundingBox> elementBox(std::int32_t layer, std::int32_t element);
    // The layer's fields in order; none for an unknown layer.
    LayerFields layerFields(std::int32_t layer);
    // The name under which the layer stores the requested field (matched
    // without regard to case); nothing when the layer has no such field.
    std::optional<QString> storedFieldName(std::int32_t layer, const QString& requested);
    // The values of a stored field for the elements filed in the cell, by id.
    std::vector<CellValue> cellValues(std::int32_t layer, std::int32_t row, std::int32_t column,
                                      const QString& storedField);

private:
    messages::LayerRecord layerFrom(const QSqlQuery& row);
    void readGridBounds(messages::LayerRecord& layer);
    void readFields(messages::LayerRecord& layer);
    void readClasses(std::int32_t map, messages::LayerRecord& layer);
    QSqlQuery& valuesQuery(std::int32_t layer, const QString& storedField);

    Database& database_;
    QSqlQuery mayOpen_;
    QSqlQuery map_;
    QSqlQuery layers_;
    QSqlQuery gridBounds_;
    QSqlQuery fields_;
    QSqlQuery classes_;
    QSqlQuery level_;
    QSqlQuery cellElements_;
    QSqlQuery elementBox_;
    QSqlQuery fieldName_;
    std::map<std::pair<std::int32_t, QString>, QSqlQuery> values_;
};

} // namespace orbelan::server
