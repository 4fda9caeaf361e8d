#include "CountRows.h"
#include "storage/Database.h"
#include "storage/MapReader.h"
#include "storage/MapWriter.h"
#include "SampleStore.h"
#include "storage/StorageError.h"

#include <gtest/gtest.h>

#include <QSqlQuery>

#include <set>
#include <tuple>

using namespace orbelan;
using namespace orbelan::server;

namespace {

class MapStore : public ::testing::Test {
protected:
    SampleStore store;
    MapReader reader{store.database()};
};

TEST_F(MapStore, MapDefinitionHoldsLayersInDrawingOrderWithFieldsAndClasses)
{
    const auto map = reader.mapDefinition(SampleStore::kMap);
    ASSERT_TRUE(map);
    EXPECT_EQ(map->name, "Ñuñoa");
    EXPECT_EQ(map->projection, 81);
    EXPECT_EQ(map->background, 0xF0F0F0);
    EXPECT_FLOAT_EQ(map->minX, -70.7f);
    ASSERT_EQ(map->layers.size(), 4u);
    EXPECT_EQ(map->layers[0].name, "Calles");
    EXPECT_EQ(map->layers[1].name, "Manzanas");
    EXPECT_EQ(map->layers[2].name, "Hitos");
    EXPECT_EQ(map->layers[0].labelField, "STREET");
    EXPECT_EQ(map->layers[0].labelBold, 1);
    const std::vector<messages::FieldRecord> fields = {{"USO", 202}, {"AREA", 5}};
    EXPECT_EQ(map->layers[1].fields, fields);
    EXPECT_EQ(map->layers[1].thematicField, "USO");
    ASSERT_EQ(map->layers[1].classes.size(), 2u);
    EXPECT_EQ(map->layers[1].classes[1].minimum, "Residencial");
    EXPECT_FALSE(reader.mapDefinition(99));
}

// The client clamps rows with the first and third bound and columns with the
// second and fourth.
TEST_F(MapStore, GridBoundsSpanTheCellsThatHoldData)
{
    const auto map = reader.mapDefinition(SampleStore::kMap);
    ASSERT_TRUE(map);
    const messages::LayerRecord& blocks = map->layers[1];
    EXPECT_EQ(std::tuple(blocks.minCol, blocks.maxCol, blocks.minRow, blocks.maxRow),
              std::tuple(5652, 5657, 10931, 10934));

    MapWriter(store.database()).addLayer(SampleStore::kMap, {.name = "Vacía", .type = 1});
    const messages::LayerRecord added = reader.mapDefinition(SampleStore::kMap)->layers.back();
    EXPECT_LT(added.maxCol, added.minCol) << "a layer without data offers no row";
}

TEST_F(MapStore, AnElementIsFiledInEveryCellItsBoxTouches)
{
    std::set<std::pair<int, int>> filed;
    for (int row = 5650; row <= 5660; ++row) {
        for (int column = 10929; column <= 10937; ++column) {
            if (!reader.cellElements(SampleStore::kBlocks, row, column).empty()) {
                filed.insert({row, column});
            }
        }
    }
    EXPECT_EQ(filed.size(), 24u);
    EXPECT_TRUE(filed.contains({5652, 10931}));
    EXPECT_TRUE(filed.contains({5657, 10934}));

    const auto streets = reader.cellElements(SampleStore::kStreets, 5655, 10935);
    ASSERT_EQ(streets.size(), 3u);
    EXPECT_EQ(streets[0].id, 1);
    EXPECT_EQ(streets[0].points[1], (messages::WirePoint{-70.6489, -33.4502}));
}

TEST_F(MapStore, CellValuesComeAsTextByStoredFieldName)
{
    EXPECT_EQ(reader.storedFieldName(SampleStore::kBlocks, QStringLiteral("area")), QStringLiteral("AREA"));
    EXPECT_FALSE(reader.storedFieldName(SampleStore::kBlocks, QStringLiteral("STREET")));
    EXPECT_FALSE(reader.storedFieldName(SampleStore::kBlocks, QStringLiteral("AREA\"; --")));

    const std::vector<CellValue> areas = {{7, "1234.5"}};
    EXPECT_EQ(reader.cellValues(SampleStore::kBlocks, 5655, 10932, QStringLiteral("AREA")), areas);
    const std::vector<CellValue> directions = {{1, "1"}, {2, "-1"}, {3, ""}};
    EXPECT_EQ(reader.cellValues(SampleStore::kStreets, 5655, 10935, QStringLiteral("DIR")), directions);
}

TEST_F(MapStore, AccessFollowsGrantsAndTheLayersMap)
{
    EXPECT_TRUE(reader.mayOpen(2, SampleStore::kMap));
    EXPECT_FALSE(reader.mayOpen(3, SampleStore::kMap));
    EXPECT_FALSE(reader.mayOpen(42, SampleStore::kMap));
    using Levels = std::unordered_map<std::int32_t, std::int16_t>;
    EXPECT_EQ(reader.layerLevels(1, SampleStore::kMap),
              (Levels{{SampleStore::kStreets, 3}, {SampleStore::kBlocks, 3},
                      {SampleStore::kLandmarks, 3}, {SampleStore::kWorld, 3}}))
        << "the layers of the map only";
    EXPECT_EQ(reader.layerLevels(2, SampleStore::kMap),
              (Levels{{SampleStore::kStreets, 1}, {SampleStore::kBlocks, 1}, {SampleStore::kWorld, 1}}))
        << "no level, no entry";
}

TEST_F(MapStore, AFailedWriteLeavesTheStoreAsItWas)
{
    Database& database = store.database();
    const auto elements = countRows(database, QStringLiteral("SELECT COUNT(*) FROM elements"));
    const auto cells = countRows(database, QStringLiteral("SELECT COUNT(*) FROM cells"));
    MapWriter writer(database);
    EXPECT_THROW(database.transaction([&] {
        writer.addElement(SampleStore::kLandmarks, {40, {{-70.6, -33.4}}, {}});
        writer.addElement(SampleStore::kLandmarks, {41, {{-200.0, -33.4}}, {}});
    }),
                 StorageError);
    EXPECT_THROW(writer.addElement(SampleStore::kLandmarks, {5, {{-70.6, -33.4}}, {}}), StorageError);
    EXPECT_THROW(writer.setLayerLevel(1, SampleStore::kStreets, 4), StorageError);
    EXPECT_EQ(countRows(database, QStringLiteral("SELECT COUNT(*) FROM elements")), elements);
    EXPECT_EQ(countRows(database, QStringLiteral("SELECT COUNT(*) FROM cells")), cells);
}

TEST_F(MapStore, FieldNamesAreColumnNamesNeverStatementText)
{
    MapWriter writer(store.database());
    messages::LayerRecord layer{.name = "Rara", .type = 1, .gridDeltaX = SampleStore::kDelta,
                                .gridDeltaY = SampleStore::kDelta, .fields = {{"x\"; DROP TABLE users; --", 202}}};
    const std::int32_t id = writer.addLayer(SampleStore::kMap, layer);
    writer.addElement(id, {1, {{-70.65, -33.45}}, {QStringLiteral("valor")}});
    const std::vector<CellValue> values = {{1, "valor"}};
    EXPECT_EQ(reader.cellValues(id, 5655, 10935, QStringLiteral("x\"; DROP TABLE users; --")), values);
    EXPECT_TRUE(reader.mayOpen(1, SampleStore::kMap));

    layer.fields = {{"element_id", 3}};
    EXPECT_THROW(writer.addLayer(SampleStore::kMap, layer), StorageError);
}

} // namespace
