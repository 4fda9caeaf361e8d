#include "CountRows.h"
#include "storage/Database.h"
#include "import/LayerImporter.h"
#include "storage/MapReader.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <sstream>
#include <stdexcept>

using namespace orbelan;
using namespace orbelan::server;

namespace {

const char* const kParks = R"({
  "type": "FeatureCollection",
  "features": [
    {"type": "Feature",
     "properties": {"name": "Uno", "pop": 12, "big": 5000000000, "ratio": 0.5,
                    "founded": "2020-01-02"},
     "geometry": {"type": "MultiPolygon", "coordinates": [
       [[[-70.66, -33.46], [-70.64, -33.46], [-70.64, -33.44], [-70.66, -33.46]],
        [[-70.655, -33.455], [-70.645, -33.455], [-70.645, -33.445], [-70.655, -33.455]]],
       [[[-70.60, -33.40], [-70.59, -33.40], [-70.59, -33.39], [-70.60, -33.40]]]]}},
    {"type": "Feature",
     "properties": {"name": "Dos", "pop": null, "big": 1, "ratio": 1.25, "founded": "1999-12-31"},
     "geometry": {"type": "Polygon", "coordinates":
       [[[-70.70, -33.50], [-70.69, -33.50], [-70.69, -33.49], [-70.70, -33.50]]]}},
    {"type": "Feature",
     "properties": {"name": "Tres", "pop": 3, "big": 2, "ratio": 2.0, "founded": "2001-01-01"},
     "geometry": {"type": "Point", "coordinates": [-70.65, -33.45]}}
  ]})";

const char* const kUtmPoint = R"({
  "type": "FeatureCollection",
  "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::32719"}},
  "features": [{"type": "Feature", "properties": {"name": "Plaza"},
                "geometry": {"type": "Point", "coordinates": [346000, 6297000]}}]})";

const char* const kBroken = R"({
  "type": "FeatureCollection",
  "features": [
    {"type": "Feature", "properties": {"name": "Bien"},
     "geometry": {"type": "Point", "coordinates": [-70.65, -33.45]}},
    {"type": "Feature", "properties": {"name": "Mal"},
     "geometry": {"type": "Point", "coordinates": [-70.65, 95.0]}}]})";

// An island across the antimeridian; a continent around the south pole
// written as on a sphere, a circle near the pole with the coast as its hole
// (a ring that does not pass through the pole); and a polygon that needs no
// cut.
const char* const kDateline = R"({
  "type": "FeatureCollection",
  "features": [
    {"type": "Feature", "properties": {"name": "Isla"},
     "geometry": {"type": "Polygon", "coordinates":
       [[[178, -16], [-178, -16], [-178, -18], [178, -18], [178, -16]]]}},
    {"type": "Feature", "properties": {"name": "Polo"},
     "geometry": {"type": "Polygon", "coordinates":
       [[[-180, -89.9], [-90, -89.9], [0, -89.9], [90, -89.9], [180, -89.9], [-180, -89.9]],
        [[-170, -70], [-60, -75], [60, -70], [170, -75], [-170, -70]]]}},
    {"type": "Feature", "properties": {"name": "Otra"},
     "geometry": {"type": "Polygon", "coordinates": [[[10, 10], [20, 10], [20, 20], [10, 10]]]}}]})";

class LayerImport : public ::testing::Test {
protected:
    QString write(const char* name, const char* content)
    {
        const QString path = dir.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }

    ImportOptions options(const QString& source)
    {
        return {.source = source,
                .map = 7,
                .labelField = QStringLiteral("NAME"),
                .labelZoomMax = 2.5f,
                .mapName = QStringLiteral("Parques")};
    }

    QTemporaryDir dir;
    Database database{dir.filePath(QStringLiteral("import.sqlite"))};
    std::ostringstream report;
    LayerImporter importer{database, report};
};

TEST_F(LayerImport, TypesAreMappedAndMultiGeometriesSplit)
{
    const std::int32_t layer = importer.import(options(write("parks.geojson", kParks)));
    MapReader reader(database);
    const auto map = reader.mapDefinition(7);
    ASSERT_TRUE(map);
    EXPECT_EQ(map->name, "Parques");
    ASSERT_EQ(map->layers.size(), 1u);
    const messages::LayerRecord& record = map->layers[0];
    EXPECT_EQ(record.type, 4);
    EXPECT_EQ(record.labelField, "name");
    EXPECT_EQ(record.labelZoomMax, 2.5f);
    const std::vector<messages::FieldRecord> fields = {
        {"name", 202}, {"pop", 3}, {"big", 20}, {"ratio", 5}, {"founded", 202}};
    EXPECT_EQ(record.fields, fields);
    EXPECT_EQ(countRows(database, QStringLiteral("SELECT COUNT(*) FROM elements WHERE layer_id = %1").arg(layer)), 3);
    const auto attributeRows = [&](const char* condition) {
        const QString sql = QStringLiteral("SELECT COUNT(*) FROM layer_%1_attributes WHERE %2");
        return countRows(database, sql.arg(layer).arg(QString::fromUtf8(condition)));
    };
    EXPECT_EQ(attributeRows("name = 'Uno' AND big = 5000000000 AND founded = '2020-01-02'"), 2);
    EXPECT_EQ(attributeRows("pop IS NULL"), 1);
    EXPECT_NE(report.str().find("skipped 1"), std::string::npos);
    EXPECT_NE(report.str().find("dropped 1 polygon holes"), std::string::npos);
}

TEST_F(LayerImport, CoordinatesArriveInLongitudeLatitude)
{
    const std::int32_t layer = importer.import(options(write("plaza.geojson", kUtmPoint)));
    QSqlQuery box = database.prepare(QStringLiteral("SELECT min_x, min_y FROM elements WHERE layer_id = ?"));
    Database::runWith(box, {layer});
    ASSERT_TRUE(box.next());
    EXPECT_NEAR(box.value(0).toDouble(), -70.65, 0.05);
    EXPECT_NEAR(box.value(1).toDouble(), -33.45, 0.05);
}

// Each piece lies within ±180°; the polar rings are closed through the pole,
// the coast into two pieces.
TEST_F(LayerImport, RingsAcrossTheAntimeridianAreCutThere)
{
    const std::int32_t layer = importer.import(options(write("dateline.geojson", kDateline)));
    const auto count = [&](const char* condition) {
        const QString sql = QStringLiteral("SELECT COUNT(*) FROM elements e JOIN layer_%1_attributes a "
                                           "ON a.element_id = e.id WHERE e.layer_id = %1 AND %2");
        return countRows(database, sql.arg(layer).arg(QString::fromUtf8(condition)));
    };
    EXPECT_EQ(count("a.name = 'Isla' AND max_x - min_x = 2 AND min_y = -18 AND max_y = -16"), 2);
    EXPECT_EQ(count("a.name = 'Polo' AND min_y = -90"), 3);
    EXPECT_EQ(count("a.name = 'Polo' AND max_y = -70"), 2);
    EXPECT_EQ(count("a.name = 'Polo' AND min_x = -180 AND max_x = -170"), 1);
    EXPECT_EQ(count("a.name = 'Otra' AND min_x = 10 AND max_x = 20"), 1);
    EXPECT_EQ(count("min_x >= -180 AND max_x <= 180"), 6);
    EXPECT_NE(report.str().find("split 2 features (3 rings) at the antimeridian"), std::string::npos) << report.str();
}

TEST_F(LayerImport, AFailedImportChangesNothing)
{
    EXPECT_THROW(importer.import(options(write("broken.geojson", kBroken))), std::exception);
    ImportOptions unknownLabel = options(write("parks.geojson", kParks));
    unknownLabel.labelField = QStringLiteral("nope");
    EXPECT_THROW(importer.import(unknownLabel), std::invalid_argument);
    EXPECT_THROW(importer.import(options(dir.filePath(QStringLiteral("missing.geojson")))), std::runtime_error);
    EXPECT_EQ(countRows(database, QStringLiteral("SELECT COUNT(*) FROM maps")), 0);
    EXPECT_EQ(countRows(database, QStringLiteral("SELECT COUNT(*) FROM layers")), 0);
    EXPECT_EQ(
        countRows(database, QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name GLOB 'layer_*_attributes'")),
        0);
}

TEST(ImportCellSize, CellsThatHoldDataHoldAFewHundredVertices)
{
    ImportedLayer layer;
    layer.extent = {-180.0, -60.0, 180.0, 80.0};
    // A dense city and one far-off point stretching the extent.
    for (int k = 0; k < 20'000; ++k) {
        layer.elements.push_back({k + 1, {{-70.7 + (k % 200) * 0.0005, -33.5 + (k / 200) * 0.0005}}, {}});
    }
    layer.elements.push_back({20'001, {{179.0, 79.0}}, {}});
    layer.vertexCount = layer.elements.size();
    const float size = LayerImporter::cellSize(layer);
    EXPECT_LT(size, 0.1f);
    EXPECT_GT(size, 0.005f);
}

} // namespace
