#include "storage/MapWriter.h"

#include "storage/AttributeTable.h"
#include "storage/FieldText.h"
#include "storage/StorageError.h"
#include "storage/VertexBlob.h"

#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace orbelan::server {

namespace {

std::int32_t nextFreeId(Database& database, const QString& sql)
{
    QSqlQuery query = database.prepare(sql);
    Database::run(query);
    return query.next() ? static_cast<std::int32_t>(query.value(0).toLongLong()) : 1;
}

bool insideTheGlobe(const messages::WirePoint& point)
{
    return std::abs(point.x) <= 180.0 && std::abs(point.y) <= 90.0;
}

void checkFieldNames(const messages::LayerRecord& layer)
{
    for (const messages::FieldRecord& field : layer.fields) {
        const QString name = QString::fromStdString(field.name);
        if (name.isEmpty() || name.compare(u"element_id", Qt::CaseInsensitive) == 0) {
            throw StorageError("layer " + layer.name + " cannot have a field named \"" +
                               field.name + "\"");
        }
    }
}

} // namespace

MapWriter::MapWriter(Database& database)
    : database_(database),
      insertElement_(database.prepare(QStringLiteral(
          "INSERT INTO elements (layer_id, id, vertices, min_x, min_y, max_x, max_y) "
          "VALUES (?, ?, ?, ?, ?, ?, ?)"))),
      fileElement_(database.prepare(QStringLiteral(
          "INSERT INTO cells (layer_id, cell_row, cell_col, element_id) VALUES (?, ?, ?, ?)")))
{
}

std::int32_t MapWriter::addUser(const QString& name, std::optional<std::int32_t> id)
{
    const std::int32_t userId = id.value_or(
        nextFreeId(database_, QStringLiteral("SELECT COALESCE(MAX(id), 0) + 1 FROM users")));
    database_.transaction([&] {
        QSqlQuery insert = database_.prepare(
            QStringLiteral("INSERT INTO users (id, name, password_hash) VALUES (?, ?, NULL)"));
        Database::runWith(insert, {userId, name});
    });
    return userId;
}

void MapWriter::ensureUser(std::int32_t id, const QString& name)
{
    database_.transaction([&] {
        QSqlQuery upsert = database_.prepare(
            QStringLiteral("INSERT INTO users (id, name, password_hash) VALUES (?, ?, NULL) "
                           "ON CONFLICT (id) DO UPDATE SET name = excluded.name"));
        Database::runWith(upsert, {id, name});
    });
}

void MapWriter::grantMap(std::int32_t user, std::int32_t map)
{
    database_.transaction([&] {
        QSqlQuery insert = database_.prepare(
            QStringLiteral("INSERT OR IGNORE INTO map_access (user_id, map_code) VALUES (?, ?)"));
        Database::runWith(insert, {user, map});
    });
}

void MapWriter::setLayerLevel(std::int32_t user, std::int32_t layer, std::int16_t level)
{
    database_.transaction([&] {
        QSqlQuery upsert = database_.prepare(
            QStringLiteral("INSERT INTO layer_access (user_id, layer_id, level) VALUES (?, ?, ?) "
                           "ON CONFLICT (user_id, layer_id) DO UPDATE SET level = excluded.level"));
        Database::runWith(upsert, {user, layer, level});
    });
}

void MapWriter::setMapLevel(std::int32_t user, std::int32_t map, std::int16_t level)
{
    database_.transaction([&] {
        QSqlQuery upsert = database_.prepare(
            QStringLiteral("INSERT INTO layer_access (user_id, layer_id, level) "
                           "SELECT ?, layer_id, ? FROM map_layers WHERE map_code = ? "
                           "ON CONFLICT (user_id, layer_id) DO UPDATE SET level = excluded.level"));
        Database::runWith(upsert, {user, level, map});
    });
}

void MapWriter::createMap(std::int32_t code, const messages::MapDefinition& header)
{
    database_.transaction([&] {
        QSqlQuery insert = database_.prepare(QStringLiteral(
            "INSERT INTO maps (code, name, min_x, min_y, max_x, max_y, background, projection) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
        Database::runWith(insert,
                          {code, QString::fromStdString(header.name), header.minX, header.minY,
                           header.maxX, header.maxY, header.background, header.projection});
    });
}

bool MapWriter::mapExists(std::int32_t code)
{
    QSqlQuery query = database_.prepare(QStringLiteral("SELECT 1 FROM maps WHERE code = ?"));
    Database::runWith(query, {code});
    return query.next();
}

void MapWriter::extendMapExtent(std::int32_t code, const Extent& box)
{
    database_.transaction([&] {
        QSqlQuery update = database_.prepare(
            QStringLiteral("UPDATE maps SET "
                           "min_x = CASE WHEN min_x = max_x THEN ? ELSE MIN(min_x, ?) END, "
                           "min_y = CASE WHEN min_y = max_y THEN ? ELSE MIN(min_y, ?) END, "
                           "max_x = CASE WHEN min_x = max_x THEN ? ELSE MAX(max_x, ?) END, "
                           "max_y = CASE WHEN min_y = max_y THEN ? ELSE MAX(max_y, ?) END "
                           "WHERE code = ?"));
        Database::runWith(update, {box.minX, box.minX, box.minY, box.minY, box.maxX, box.maxX,
                                   box.maxY, box.maxY, code});
    });
}

void MapWriter::setMapExtent(std::int32_t code, const Extent& box)
{
    database_.transaction([&] {
        QSqlQuery update = database_.prepare(
            QStringLiteral("UPDATE maps SET min_x = ?, min_y = ?, max_x = ?, max_y = ? WHERE code = ?"));
        Database::runWith(update, {box.minX, box.minY, box.maxX, box.maxY, code});
    });
}

void MapWriter::removeMap(std::int32_t code)
{
    database_.transaction([&] {
        QSqlQuery layers =
            database_.prepare(QStringLiteral("SELECT id FROM layers WHERE map_code = ?"));
        Database::runWith(layers, {code});
        std::vector<std::int32_t> ids;
        while (layers.next()) {
            ids.push_back(static_cast<std::int32_t>(layers.value(0).toLongLong()));
        }
        for (const std::int32_t id : ids) {
            database_.execute(QStringLiteral("DROP TABLE IF EXISTS %1")
                                  .arg(AttributeTable::quoted(AttributeTable::name(id))));
            targets_.erase(id);
        }
        QSqlQuery remove = database_.prepare(QStringLiteral("DELETE FROM maps WHERE code = ?"));
        Database::runWith(remove, {code});
    });
}

std::int32_t MapWriter::addLayer(std::int32_t map, const messages::LayerRecord& layer)
{
    checkFieldNames(layer);
    std::int32_t id = layer.id;
    database_.transaction([&] {
        if (id <= 0) {
            id = nextFreeId(database_,
                            QStringLiteral("SELECT COALESCE(MAX(id), 0) + 1 FROM layers"));
        }
        insertLayerRow(map, layer, id);
        insertFieldsAndClasses(id, layer);
        database_.execute(AttributeTable::createStatement(id, layer.fields));
    });
    return id;
}

void MapWriter::insertLayerRow(std::int32_t map, const messages::LayerRecord& layer,
                               std::int32_t id)
{
    QSqlQuery insert = database_.prepare(QStringLiteral(
        "INSERT INTO layers (id, map_code, position, name, type, grid_delta_x, grid_delta_y, "
        "visibility, zoom_min, zoom_max, draw_color, draw_style, draw_width, fill_color, "
        "fill_style, label_field, label_zoom_min, label_zoom_max, label_visibility, label_bold, "
        "label_color, thematic_field, thematic_type) VALUES (?, ?, "
        "(SELECT COALESCE(MAX(position), 0) + 1 FROM layers WHERE map_code = ?), "
        "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    Database::runWith(insert, {id,
                               map,
                               map,
                               QString::fromStdString(layer.name),
                               layer.type,
                               layer.gridDeltaX,
                               layer.gridDeltaY,
                               layer.visibility,
                               layer.zoomMin,
                               layer.zoomMax,
                               layer.drawColor,
                               layer.drawStyle,
                               layer.drawWidth,
                               layer.fillColor,
                               layer.fillStyle,
                               QString::fromStdString(layer.labelField),
                               layer.labelZoomMin,
                               layer.labelZoomMax,
                               layer.labelVisibility,
                               layer.labelBold,
                               layer.labelColor,
                               QString::fromStdString(layer.thematicField),
                               layer.thematicType});
}

void MapWriter::insertFieldsAndClasses(std::int32_t id, const messages::LayerRecord& layer)
{
    QSqlQuery field = database_.prepare(QStringLiteral(
        "INSERT INTO fields (layer_id, position, name, ado_type) VALUES (?, ?, ?, ?)"));
    int position = 0;
    for (const messages::FieldRecord& record : layer.fields) {
        Database::runWith(field,
                          {id, ++position, QString::fromStdString(record.name), record.type});
    }
    QSqlQuery themeClass = database_.prepare(QStringLiteral(
        "INSERT INTO thematic_classes (layer_id, position, min_value, max_value, draw_color, "
        "draw_style, draw_width, fill_color, fill_style) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    position = 0;
    for (const messages::ThematicClassRecord& record : layer.classes) {
        Database::runWith(themeClass,
                          {id, ++position, QString::fromStdString(record.minimum),
                           QString::fromStdString(record.maximum), record.drawColor,
                           record.drawStyle, record.drawWidth, record.fillColor, record.fillStyle});
    }
}

void MapWriter::addElement(std::int32_t layer, const StoredElement& element)
{
    if (element.points.empty() ||
        !std::all_of(element.points.begin(), element.points.end(), insideTheGlobe)) {
        throw StorageError("element " + std::to_string(element.id) +
                           " needs at least one vertex, every one within ±180° and ±90°");
    }
    LayerTarget& target = targetOf(layer);
    const Extent box = Extent::of(element.points);
    database_.transaction([&] {
        Database::runWith(insertElement_, {layer, element.id, VertexBlob::pack(element.points),
                                           box.minX, box.minY, box.maxX, box.maxY});
        for (const CellIndex& cell : target.grid.cellsOf(box, kMaximumCellsPerElement)) {
            Database::runWith(fileElement_, {layer, cell.row, cell.column, element.id});
        }
        insertAttributes(target, element);
    });
}

void MapWriter::insertAttributes(LayerTarget& target, const StoredElement& element)
{
    if (element.attributes.size() > target.fieldCount) {
        throw StorageError("element " + std::to_string(element.id) + " has " +
                           std::to_string(element.attributes.size()) + " values for " +
                           std::to_string(target.fieldCount) + " fields");
    }
    target.insertAttributes.bindValue(0, element.id);
    for (std::size_t i = 0; i < target.fieldCount; ++i) {
        const QVariant value = i < element.attributes.size() ? element.attributes[i] : QVariant();
        target.insertAttributes.bindValue(static_cast<int>(i + 1), value);
    }
    Database::run(target.insertAttributes);
}

void MapWriter::updateAttributes(std::int32_t layer,
                                 const std::vector<std::pair<QString, QVariant>>& values,
                                 const std::vector<std::int32_t>& elements)
{
    QStringList assignments;
    QVariantList bound;
    for (const auto& [field, value] : values) {
        assignments << AttributeTable::quoted(field) + QStringLiteral(" = ?");
        bound << value;
    }
    bound << AttributeTable::idList(elements);
    database_.transaction([&] {
        QSqlQuery update = database_.prepare(
            QStringLiteral("UPDATE %1 SET %2 WHERE element_id IN (SELECT value FROM json_each(?))")
                .arg(AttributeTable::quoted(AttributeTable::name(layer)), assignments.join(u", ")));
        Database::runWith(update, bound);
    });
}

// Text columns are indexed on their folded text, which their conditions
// compare, numeric columns on their values.
void MapWriter::indexAttributes()
{
    QSqlQuery fields = database_.prepare(
        QStringLiteral("SELECT layer_id, position, name, ado_type FROM fields ORDER BY layer_id, position"));
    Database::run(fields);
    QStringList statements;
    while (fields.next()) {
        const auto layer = static_cast<std::int32_t>(fields.value(0).toLongLong());
        const QString column = AttributeTable::quoted(fields.value(2).toString());
        const bool text = AttributeTable::columnType(static_cast<std::int16_t>(fields.value(3).toInt())) ==
                          QLatin1String("TEXT");
        const QString index =
            QStringLiteral("layer_%1_field_%2").arg(layer).arg(fields.value(1).toInt());
        statements << QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (%3)")
                          .arg(AttributeTable::quoted(index),
                               AttributeTable::quoted(AttributeTable::name(layer)),
                               text ? FieldText::of(column) : column);
    }
    database_.transaction([&] {
        for (const QString& statement : statements) {
            database_.execute(statement);
        }
    });
}

MapWriter::LayerTarget& MapWriter::targetOf(std::int32_t layer)
{
    if (const auto found = targets_.find(layer); found != targets_.end()) {
        return found->second;
    }
    QSqlQuery shape = database_.prepare(
        QStringLiteral("SELECT grid_delta_x, grid_delta_y FROM layers WHERE id = ?"));
    Database::runWith(shape, {layer});
    if (!shape.next()) {
        throw StorageError("there is no layer " + std::to_string(layer));
    }
    const GridCells grid(static_cast<float>(shape.value(0).toDouble()),
                         static_cast<float>(shape.value(1).toDouble()));
    QSqlQuery fields = database_.prepare(
        QStringLiteral("SELECT name, ado_type FROM fields WHERE layer_id = ? ORDER BY position"));
    Database::runWith(fields, {layer});
    std::vector<messages::FieldRecord> records;
    while (fields.next()) {
        records.push_back({fields.value(0).toString().toStdString(),
                           static_cast<std::int16_t>(fields.value(1).toInt())});
    }
    QSqlQuery insert = database_.prepare(AttributeTable::insertStatement(layer, records));
    return targets_.emplace(layer, LayerTarget{grid, records.size(), std::move(insert)})
        .first->second;
}

} // namespace orbelan::server
