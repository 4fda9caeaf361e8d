#include "storage/MapReader.h"

#include "storage/AttributeTable.h"
#include "storage/VertexBlob.h"

#include <QVariant>

namespace orbelan::server {

namespace {

std::int16_t shortAt(const QSqlQuery& row, int column)
{
    return static_cast<std::int16_t>(row.value(column).toInt());
}

std::int32_t longAt(const QSqlQuery& row, int column)
{
    return static_cast<std::int32_t>(row.value(column).toLongLong());
}

float singleAt(const QSqlQuery& row, int column)
{
    return static_cast<float>(row.value(column).toDouble());
}

std::string textAt(const QSqlQuery& row, int column)
{
    return row.value(column).toString().toStdString();
}

} // namespace

MapReader::MapReader(Database& database)
    : database_(database),
      mayOpen_(database.prepare(
          QStringLiteral("SELECT 1 FROM map_access WHERE user_id = ? AND map_code = ?"))),
      map_(database.prepare(QStringLiteral(
          "SELECT name, min_x, min_y, max_x, max_y, background, projection FROM maps "
          "WHERE code = ?"))),
      layers_(database.prepare(QStringLiteral(
          "SELECT l.name, l.id, l.type, l.grid_delta_x, l.grid_delta_y, m.visibility, m.zoom_min, "
          "m.zoom_max, m.draw_color, m.draw_style, m.draw_width, m.fill_color, m.fill_style, "
          "m.label_field, m.label_zoom_min, m.label_zoom_max, m.label_visibility, m.label_bold, "
          "m.label_color, m.thematic_field, m.thematic_type FROM map_layers m "
          "JOIN layers l ON l.id = m.layer_id WHERE m.map_code = ? ORDER BY m.position"))),
      gridBounds_(database.prepare(QStringLiteral(
          "SELECT MIN(cell_row), MAX(cell_row), MIN(cell_col), MAX(cell_col) FROM cells "
          "WHERE layer_id = ?"))),
      fields_(database.prepare(QStringLiteral(
          "SELECT name, ado_type FROM fields WHERE layer_id = ? ORDER BY position"))),
      classes_(database.prepare(QStringLiteral(
          "SELECT min_value, max_value, draw_color, draw_style, draw_width, fill_color, "
          "fill_style FROM map_classes WHERE map_code = ? AND layer_id = ? ORDER BY position"))),
      level_(database.prepare(
          QStringLiteral("SELECT m.layer_id, a.level FROM map_layers m JOIN layer_access a "
                         "ON a.layer_id = m.layer_id WHERE a.user_id = ? AND m.map_code = ? AND a.level <> 0"))),
      cellElements_(database.prepare(QStringLiteral(
          "SELECT e.id, e.vertices FROM cells c JOIN elements e "
          "ON e.layer_id = c.layer_id AND e.id = c.element_id "
          "WHERE c.layer_id = ? AND c.cell_row = ? AND c.cell_col = ? ORDER BY c.element_id"))),
      elementBox_(database.prepare(QStringLiteral(
          "SELECT min_x, min_y, max_x, max_y FROM elements WHERE layer_id = ? AND id = ?"))),
      fieldName_(database.prepare(
          QStringLiteral("SELECT name FROM fields WHERE layer_id = ? AND name = ?")))
{
}

bool MapReader::mayOpen(std::int32_t user, std::int32_t map)
{
    Database::runWith(mayOpen_, {user, map});
    const bool found = mayOpen_.next();
    mayOpen_.finish();
    return found;
}

std::optional<messages::MapDefinition> MapReader::mapDefinition(std::int32_t map)
{
    Database::runWith(map_, {map});
    if (!map_.next()) {
        map_.finish();
        return std::nullopt;
    }
    messages::MapDefinition definition;
    definition.name = textAt(map_, 0);
    definition.minX = singleAt(map_, 1);
    definition.minY = singleAt(map_, 2);
    definition.maxX = singleAt(map_, 3);
    definition.maxY = singleAt(map_, 4);
    definition.background = longAt(map_, 5);
    definition.projection = shortAt(map_, 6);
    map_.finish();

    Database::runWith(layers_, {map});
    while (layers_.next()) {
        definition.layers.push_back(layerFrom(layers_));
    }
    layers_.finish();
    for (messages::LayerRecord& layer : definition.layers) {
        readGridBounds(layer);
        readFields(layer);
        readClasses(map, layer);
    }
    return definition;
}

messages::LayerRecord MapReader::layerFrom(const QSqlQuery& row)
{
    messages::LayerRecord layer;
    layer.name = textAt(row, 0);
    layer.id = longAt(row, 1);
    layer.type = shortAt(row, 2);
    layer.gridDeltaX = singleAt(row, 3);
    layer.gridDeltaY = singleAt(row, 4);
    layer.visibility = shortAt(row, 5);
    layer.zoomMin = singleAt(row, 6);
    layer.zoomMax = singleAt(row, 7);
    layer.drawColor = longAt(row, 8);
    layer.drawStyle = shortAt(row, 9);
    layer.drawWidth = shortAt(row, 10);
    layer.fillColor = longAt(row, 11);
    layer.fillStyle = shortAt(row, 12);
    layer.labelField = textAt(row, 13);
    layer.labelZoomMin = singleAt(row, 14);
    layer.labelZoomMax = singleAt(row, 15);
    layer.labelVisibility = shortAt(row, 16);
    layer.labelBold = shortAt(row, 17);
    layer.labelColor = longAt(row, 18);
    layer.thematicField = textAt(row, 19);
    layer.thematicType = shortAt(row, 20);
    return layer;
}

// The client clamps rows with the first and third bound and columns with the
// second and fourth.
void MapReader::readGridBounds(messages::LayerRecord& layer)
{
    const GridBounds bounds = gridBounds(layer.id);
    layer.minCol = bounds.minRow;
    layer.maxCol = bounds.maxRow;
    layer.minRow = bounds.minColumn;
    layer.maxRow = bounds.maxColumn;
}

MapReader::GridBounds MapReader::gridBounds(std::int32_t layer)
{
    Database::runWith(gridBounds_, {layer});
    GridBounds bounds;
    if (gridBounds_.next() && !gridBounds_.value(0).isNull()) {
        bounds = {longAt(gridBounds_, 0), longAt(gridBounds_, 1), longAt(gridBounds_, 2),
                  longAt(gridBounds_, 3)};
    }
    gridBounds_.finish();
    return bounds;
}

void MapReader::readFields(messages::LayerRecord& layer)
{
    layer.fields = layerFields(layer.id).fields;
}

LayerFields MapReader::layerFields(std::int32_t layer)
{
    Database::runWith(fields_, {layer});
    LayerFields fields;
    while (fields_.next()) {
        fields.fields.push_back({textAt(fields_, 0), shortAt(fields_, 1)});
    }
    fields_.finish();
    return fields;
}

void MapReader::readClasses(std::int32_t map, messages::LayerRecord& layer)
{
    Database::runWith(classes_, {map, layer.id});
    while (classes_.next()) {
        layer.classes.push_back({textAt(classes_, 0), textAt(classes_, 1), longAt(classes_, 2),
                                 shortAt(classes_, 3), shortAt(classes_, 4), longAt(classes_, 5),
                                 shortAt(classes_, 6)});
    }
    classes_.finish();
}

std::unordered_map<std::int32_t, std::int16_t> MapReader::layerLevels(std::int32_t user,
                                                                      std::int32_t map)
{
    Database::runWith(level_, {user, map});
    std::unordered_map<std::int32_t, std::int16_t> levels;
    while (level_.next()) {
        levels.emplace(level_.value(0).toInt(), shortAt(level_, 1));
    }
    level_.finish();
    return levels;
}

std::vector<messages::CellElement> MapReader::cellElements(std::int32_t layer, std::int32_t row,
                                                           std::int32_t column)
{
    Database::runWith(cellElements_, {layer, row, column});
    std::vector<messages::CellElement> elements;
    while (cellElements_.next()) {
        elements.push_back(
            {longAt(cellElements_, 0), VertexBlob::unpack(cellElements_.value(1).toByteArray())});
    }
    cellElements_.finish();
    return elements;
}

std::optional<messages::ElementBoundingBox> MapReader::elementBox(std::int32_t layer,
                                                                 std::int32_t element)
{
    Database::runWith(elementBox_, {layer, element});
    std::optional<messages::ElementBoundingBox> box;
    if (elementBox_.next()) {
        box = messages::ElementBoundingBox{layer, element, elementBox_.value(0).toDouble(),
                                           elementBox_.value(1).toDouble(), elementBox_.value(2).toDouble(),
                                           elementBox_.value(3).toDouble()};
    }
    elementBox_.finish();
    return box;
}

std::optional<QString> MapReader::storedFieldName(std::int32_t layer, const QString& requested)
{
    Database::runWith(fieldName_, {layer, requested});
    std::optional<QString> name;
    if (fieldName_.next()) {
        name = fieldName_.value(0).toString();
    }
    fieldName_.finish();
    return name;
}

std::vector<CellValue> MapReader::cellValues(std::int32_t layer, std::int32_t row,
                                             std::int32_t column, const QString& storedField)
{
    QSqlQuery& query = valuesQuery(layer, storedField);
    Database::runWith(query, {layer, row, column});
    std::vector<CellValue> values;
    while (query.next()) {
        values.emplace_back(longAt(query, 0), AttributeTable::text(query.value(1)));
    }
    query.finish();
    return values;
}

// One statement per layer and field, made from the stored field name only.
QSqlQuery& MapReader::valuesQuery(std::int32_t layer, const QString& storedField)
{
    const auto key = std::make_pair(layer, storedField);
    auto found = values_.find(key);
    if (found == values_.end()) {
        const QString sql =
            QStringLiteral("SELECT c.element_id, a.%1 FROM cells c LEFT JOIN %2 a "
                           "ON a.element_id = c.element_id "
                           "WHERE c.layer_id = ? AND c.cell_row = ? AND c.cell_col = ? "
                           "ORDER BY c.element_id")
                .arg(AttributeTable::quoted(storedField),
                     AttributeTable::quoted(AttributeTable::name(layer)));
        found = values_.emplace(key, database_.prepare(sql)).first;
    }
    return found->second;
}

} // namespace orbelan::server
