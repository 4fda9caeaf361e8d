#include "storage/Schema.h"

namespace orbelan::server {

namespace {

const char* const kUsers = R"(
CREATE TABLE IF NOT EXISTS users (
    id            INTEGER PRIMARY KEY,
    name          TEXT NOT NULL UNIQUE,
    password_hash TEXT
))";

const char* const kMaps = R"(
CREATE TABLE IF NOT EXISTS maps (
    code       INTEGER PRIMARY KEY,
    name       TEXT NOT NULL,
    min_x      REAL NOT NULL,
    min_y      REAL NOT NULL,
    max_x      REAL NOT NULL,
    max_y      REAL NOT NULL,
    background INTEGER NOT NULL,
    projection INTEGER NOT NULL
))";

const char* const kMapAccess = R"(
CREATE TABLE IF NOT EXISTS map_access (
    user_id  INTEGER NOT NULL REFERENCES users(id) ON DELETE CASCADE,
    map_code INTEGER NOT NULL REFERENCES maps(code) ON DELETE CASCADE,
    PRIMARY KEY (user_id, map_code)
) WITHOUT ROWID)";

// The settings a map shows a layer with: the same columns in the stored
// layers and in the saved maps' layers.
const char* const kLayerSettings = R"(
    visibility       INTEGER NOT NULL,
    zoom_min         REAL NOT NULL,
    zoom_max         REAL NOT NULL,
    draw_color       INTEGER NOT NULL,
    draw_style       INTEGER NOT NULL,
    draw_width       INTEGER NOT NULL,
    fill_color       INTEGER NOT NULL,
    fill_style       INTEGER NOT NULL,
    label_field      TEXT NOT NULL,
    label_zoom_min   REAL NOT NULL,
    label_zoom_max   REAL NOT NULL,
    label_visibility INTEGER NOT NULL,
    label_bold       INTEGER NOT NULL,
    label_color      INTEGER NOT NULL,
    thematic_field   TEXT NOT NULL,
    thematic_type    INTEGER NOT NULL,
)";

const char* const kLayersHead = R"(
CREATE TABLE IF NOT EXISTS layers (
    id               INTEGER PRIMARY KEY,
    map_code         INTEGER NOT NULL REFERENCES maps(code) ON DELETE CASCADE,
    position         INTEGER NOT NULL,
    name             TEXT NOT NULL,
    type             INTEGER NOT NULL CHECK (type IN (1, 2, 4, 5)),
    grid_delta_x     REAL NOT NULL CHECK (grid_delta_x > 0),
    grid_delta_y     REAL NOT NULL CHECK (grid_delta_y > 0),)";
const char* const kLayersTail = R"(    UNIQUE (map_code, position)
))";

const char* const kFields = R"(
CREATE TABLE IF NOT EXISTS fields (
    layer_id INTEGER NOT NULL REFERENCES layers(id) ON DELETE CASCADE,
    position INTEGER NOT NULL,
    name     TEXT NOT NULL COLLATE NOCASE,
    ado_type INTEGER NOT NULL,
    PRIMARY KEY (layer_id, position),
    UNIQUE (layer_id, name)
) WITHOUT ROWID)";

// How a thematic class draws: the same columns in the stored classes and in
// the saved maps' classes.
const char* const kClassStyle = R"(
    min_value  TEXT NOT NULL,
    max_value  TEXT NOT NULL,
    draw_color INTEGER NOT NULL,
    draw_style INTEGER NOT NULL,
    draw_width INTEGER NOT NULL,
    fill_color INTEGER NOT NULL,
    fill_style INTEGER NOT NULL,
)";

const char* const kThematicClassesHead = R"(
CREATE TABLE IF NOT EXISTS thematic_classes (
    layer_id   INTEGER NOT NULL REFERENCES layers(id) ON DELETE CASCADE,
    position   INTEGER NOT NULL,)";
const char* const kThematicClassesTail = R"(    PRIMARY KEY (layer_id, position)
) WITHOUT ROWID)";

const char* const kLayerAccess = R"(
CREATE TABLE IF NOT EXISTS layer_access (
    user_id  INTEGER NOT NULL REFERENCES users(id) ON DELETE CASCADE,
    layer_id INTEGER NOT NULL REFERENCES layers(id) ON DELETE CASCADE,
    level    INTEGER NOT NULL CHECK (level BETWEEN 0 AND 3),
    PRIMARY KEY (user_id, layer_id)
) WITHOUT ROWID)";

const char* const kElements = R"(
CREATE TABLE IF NOT EXISTS elements (
    layer_id INTEGER NOT NULL REFERENCES layers(id) ON DELETE CASCADE,
    id       INTEGER NOT NULL CHECK (id > 0),
    vertices BLOB NOT NULL,
    min_x    REAL NOT NULL,
    min_y    REAL NOT NULL,
    max_x    REAL NOT NULL,
    max_y    REAL NOT NULL,
    PRIMARY KEY (layer_id, id)
) WITHOUT ROWID)";

const char* const kCells = R"(
CREATE TABLE IF NOT EXISTS cells (
    layer_id   INTEGER NOT NULL,
    cell_row   INTEGER NOT NULL,
    cell_col   INTEGER NOT NULL,
    element_id INTEGER NOT NULL,
    PRIMARY KEY (layer_id, cell_row, cell_col, element_id),
    FOREIGN KEY (layer_id, element_id) REFERENCES elements(layer_id, id) ON DELETE CASCADE
) WITHOUT ROWID)";

// A saved map has no layers of its own: each of its layers is a stored
// layer (geometry, fields, attributes) seen with the settings the user saved.
const char* const kSavedLayersHead = R"(
CREATE TABLE IF NOT EXISTS saved_layers (
    map_code         INTEGER NOT NULL REFERENCES maps(code) ON DELETE CASCADE,
    position         INTEGER NOT NULL,
    layer_id         INTEGER NOT NULL REFERENCES layers(id) ON DELETE CASCADE,)";
const char* const kSavedLayersTail = R"(    PRIMARY KEY (map_code, position),
    UNIQUE (map_code, layer_id)
) WITHOUT ROWID)";

const char* const kSavedClassesHead = R"(
CREATE TABLE IF NOT EXISTS saved_classes (
    map_code   INTEGER NOT NULL,
    layer_id   INTEGER NOT NULL,
    position   INTEGER NOT NULL,)";
const char* const kSavedClassesTail = R"(    PRIMARY KEY (map_code, layer_id, position),
    FOREIGN KEY (map_code, layer_id) REFERENCES saved_layers(map_code, layer_id) ON DELETE CASCADE
) WITHOUT ROWID)";

// The layers of every map, stored or saved, with the settings it shows them
// with; and their classes after the default one.
const char* const kMapLayers = R"(
CREATE VIEW IF NOT EXISTS map_layers AS
SELECT map_code, position, id AS layer_id, visibility, zoom_min, zoom_max, draw_color, draw_style,
       draw_width, fill_color, fill_style, label_field, label_zoom_min, label_zoom_max,
       label_visibility, label_bold, label_color, thematic_field, thematic_type
  FROM layers
UNION ALL
SELECT map_code, position, layer_id, visibility, zoom_min, zoom_max, draw_color, draw_style,
       draw_width, fill_color, fill_style, label_field, label_zoom_min, label_zoom_max,
       label_visibility, label_bold, label_color, thematic_field, thematic_type
  FROM saved_layers)";

const char* const kMapClasses = R"(
CREATE VIEW IF NOT EXISTS map_classes AS
SELECT l.map_code, c.layer_id, c.position, c.min_value, c.max_value, c.draw_color, c.draw_style,
       c.draw_width, c.fill_color, c.fill_style
  FROM thematic_classes c JOIN layers l ON l.id = c.layer_id
UNION ALL
SELECT map_code, layer_id, position, min_value, max_value, draw_color, draw_style, draw_width,
       fill_color, fill_style
  FROM saved_classes)";

const char* const kCellsByElement =
    "CREATE INDEX IF NOT EXISTS cells_by_element ON cells (layer_id, element_id)";

// A table of layers or classes: its own columns first, then the shared
// ones, then its keys.
QString table(const char* head, const char* shared, const char* tail)
{
    return QString::fromUtf8(head) + QString::fromUtf8(shared) + QString::fromUtf8(tail);
}

} // namespace

const QStringList& Schema::statements()
{
    static const QStringList all = {
        QString::fromUtf8(kUsers),
        QString::fromUtf8(kMaps),
        QString::fromUtf8(kMapAccess),
        table(kLayersHead, kLayerSettings, kLayersTail),
        QString::fromUtf8(kFields),
        table(kThematicClassesHead, kClassStyle, kThematicClassesTail),
        QString::fromUtf8(kLayerAccess),
        QString::fromUtf8(kElements),
        QString::fromUtf8(kCells),
        QString::fromUtf8(kCellsByElement),
        table(kSavedLayersHead, kLayerSettings, kSavedLayersTail),
        table(kSavedClassesHead, kClassStyle, kSavedClassesTail),
        QString::fromUtf8(kMapLayers),
        QString::fromUtf8(kMapClasses),
    };
    return all;
}

} // namespace orbelan::server
