#include "storage/SavedMapWriter.h"

#include <QVariant>

#include <unordered_set>

namespace orbelan::server {

namespace {

using Kind = SavedMapWriter::Outcome::Kind;

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

} // namespace

SavedMapWriter::SavedMapWriter(Database& database)
    : database_(database),
      nameTaken_(database.prepare(
          QStringLiteral("SELECT 1 FROM maps m JOIN map_access a ON a.map_code = m.code "
                         "WHERE a.user_id = ? AND m.name = ?"))),
      sourceLayers_(database.prepare(QStringLiteral("SELECT layer_id FROM map_layers WHERE map_code = ?"))),
      nextCode_(database.prepare(QStringLiteral("SELECT COALESCE(MAX(code), 0) + 1 FROM maps"))),
      insertMap_(database.prepare(QStringLiteral(
          "INSERT INTO maps (code, name, min_x, min_y, max_x, max_y, background, projection) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"))),
      grant_(database.prepare(QStringLiteral("INSERT INTO map_access (user_id, map_code) VALUES (?, ?)"))),
      insertLayer_(database.prepare(QStringLiteral(
          "INSERT INTO saved_layers (map_code, position, layer_id, visibility, zoom_min, zoom_max, "
          "draw_color, draw_style, draw_width, fill_color, fill_style, label_field, label_zoom_min, "
          "label_zoom_max, label_visibility, label_bold, label_color, thematic_field, thematic_type) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"))),
      insertClass_(database.prepare(QStringLiteral(
          "INSERT INTO saved_classes (map_code, layer_id, position, min_value, max_value, draw_color, "
          "draw_style, draw_width, fill_color, fill_style) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")))
{
}

SavedMapWriter::Outcome SavedMapWriter::save(const messages::SaveMapRequest& request)
{
    const QString name = text(request.definition.name);
    Outcome outcome;
    database_.transaction([&] {
        if (name.trimmed().isEmpty() || nameTaken(request.user, name)) {
            outcome.kind = Kind::InvalidName;
            return;
        }
        if (!layersBelongTo(request)) {
            outcome.kind = Kind::ForeignLayer;
            return;
        }
        outcome.map = insertMap(request, name);
        std::int32_t position = 0;
        for (const messages::SavedLayerRecord& layer : request.layers) {
            insertLayer(outcome.map, ++position, layer);
        }
    });
    return outcome;
}

bool SavedMapWriter::nameTaken(std::int32_t user, const QString& name)
{
    Database::runWith(nameTaken_, {user, name});
    const bool taken = nameTaken_.next();
    nameTaken_.finish();
    return taken;
}

bool SavedMapWriter::layersBelongTo(const messages::SaveMapRequest& request)
{
    Database::runWith(sourceLayers_, {request.map});
    std::unordered_set<std::int32_t> unused;
    while (sourceLayers_.next()) {
        unused.insert(sourceLayers_.value(0).toInt());
    }
    sourceLayers_.finish();
    for (const messages::SavedLayerRecord& layer : request.layers) {
        if (unused.erase(layer.settings.id) == 0) {
            return false;
        }
    }
    return true;
}

std::int32_t SavedMapWriter::insertMap(const messages::SaveMapRequest& request, const QString& name)
{
    Database::run(nextCode_);
    nextCode_.next();
    const auto code = static_cast<std::int32_t>(nextCode_.value(0).toLongLong());
    nextCode_.finish();
    const messages::MapDefinition& map = request.definition;
    Database::runWith(insertMap_,
                      {code, name, map.minX, map.minY, map.maxX, map.maxY, map.background, map.projection});
    Database::runWith(grant_, {request.user, code});
    return code;
}

// A bold label is stored as 1, the value the map definition sends for it.
void SavedMapWriter::insertLayer(std::int32_t map, std::int32_t position, const messages::SavedLayerRecord& saved)
{
    const messages::LayerRecord& layer = saved.settings;
    Database::runWith(insertLayer_,
                      {map, position, layer.id, layer.visibility, layer.zoomMin, layer.zoomMax, layer.drawColor,
                       layer.drawStyle, layer.drawWidth, layer.fillColor, layer.fillStyle, text(layer.labelField),
                       layer.labelZoomMin, layer.labelZoomMax, layer.labelVisibility, layer.labelBold != 0 ? 1 : 0,
                       layer.labelColor, text(layer.thematicField), layer.thematicType});
    std::int32_t classPosition = 0;
    for (const messages::ThematicClassRecord& themeClass : layer.classes) {
        Database::runWith(insertClass_, {map, layer.id, ++classPosition, text(themeClass.minimum),
                                         text(themeClass.maximum), themeClass.drawColor, themeClass.drawStyle,
                                         themeClass.drawWidth, themeClass.fillColor, themeClass.fillStyle});
    }
}

} // namespace orbelan::server
