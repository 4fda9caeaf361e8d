#include "CountRows.h"
#include "storage/Database.h"
#include "demo/DemoBuilder.h"
#include "login/PasswordHash.h"
#include "storage/UserStore.h"
#include "storage/MapReader.h"
#include "storage/AttributeReader.h"
#include "storage/FieldSummary.h"
#include "demo/SantiagoGenerator.h"
#include "demo/SantiagoRelief.h"
#include "projection/ProjectionFactory.h"

#include <gdal.h>

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>

#include <algorithm>
#include <set>
#include <sstream>
#include <tuple>

using namespace orbelan;
using namespace orbelan::server;

namespace {

// A digest of every element, cell and attribute of the demo.
QByteArray digestOf(Database& database)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const char* sql :
         {"SELECT layer_id, id, vertices FROM elements ORDER BY 1, 2", "SELECT * FROM cells ORDER BY 1, 2, 3, 4",
          "SELECT * FROM layer_101_attributes ORDER BY 1", "SELECT * FROM layer_102_attributes ORDER BY 1",
          "SELECT * FROM layer_103_attributes ORDER BY 1"}) {
        QSqlQuery query = database.prepare(QString::fromUtf8(sql));
        Database::run(query);
        while (query.next()) {
            for (int column = 0; column < query.record().count(); ++column) {
                hash.addData(query.value(column).toByteArray());
            }
        }
    }
    return hash.result();
}

class DemoBuild : public ::testing::Test {
protected:
    void SetUp() override { DemoBuilder(database, report).build(); }

    QTemporaryDir dir;
    Database database{dir.filePath(QStringLiteral("demo.sqlite"))};
    std::ostringstream report;
};

TEST_F(DemoBuild, SantiagoHasTheStreetsParcelsAndPlacesOfACity)
{
    MapReader reader(database);
    const auto map = reader.mapDefinition(SantiagoGenerator::kMapCode);
    ASSERT_TRUE(map);
    EXPECT_EQ(std::tuple(map->name, map->projection), std::tuple("Santiago", 81));
    ASSERT_EQ(map->layers.size(), 4u);
    // The shaded relief lies under the parcels, and the streets over both.
    EXPECT_EQ(map->layers[0].type, 5);
    EXPECT_EQ(map->layers[0].name, SantiagoRelief::kFileName);
    EXPECT_EQ(map->layers[1].id, SantiagoGenerator::kParcelsLayer);
    EXPECT_EQ(map->layers[2].id, SantiagoGenerator::kStreetsLayer);
    const auto elements = [this](std::int32_t layer) {
        return countRows(database, QStringLiteral("SELECT COUNT(*) FROM elements WHERE layer_id = %1").arg(layer));
    };
    EXPECT_GE(elements(SantiagoGenerator::kStreetsLayer), 5000);
    EXPECT_GE(elements(SantiagoGenerator::kParcelsLayer), 10000);
    EXPECT_GE(elements(SantiagoGenerator::kPlacesLayer), 1000);
    EXPECT_GE(countRows(database, QStringLiteral("SELECT COUNT(DISTINCT USO) FROM layer_102_attributes")), 5);
    // Every layer with elements has grid cells; the image layer has neither.
    for (const auto& layer : map->layers) {
        if (layer.type == 5) {
            continue;
        }
        EXPECT_LE(layer.minCol, layer.maxCol) << layer.name;
        EXPECT_LE(layer.minRow, layer.maxRow) << layer.name;
    }
    EXPECT_NE(report.str().find("skipped"), std::string::npos);
}

TEST_F(DemoBuild, UsersDrawViewOrAreRefused)
{
    MapReader reader(database);
    EXPECT_TRUE(reader.mayOpen(DemoBuilder::kAdmin, SantiagoGenerator::kMapCode));
    EXPECT_TRUE(reader.mayOpen(DemoBuilder::kViewer, SantiagoGenerator::kMapCode));
    EXPECT_FALSE(reader.mayOpen(DemoBuilder::kGuest, SantiagoGenerator::kMapCode));
    UserStore users(database);
    for (const std::string name : {"admin", "visor", "invitado"}) {
        EXPECT_TRUE(PasswordHash::matches(users.byName(name)->passwordHash, name)) << name;
    }
    EXPECT_EQ(reader.layerLevels(DemoBuilder::kAdmin, SantiagoGenerator::kMapCode).at(SantiagoGenerator::kStreetsLayer), 3);
    EXPECT_EQ(reader.layerLevels(DemoBuilder::kViewer, SantiagoGenerator::kMapCode).at(SantiagoGenerator::kPlacesLayer), 1);
}

TEST_F(DemoBuild, BuildingAgainGivesTheSameMap)
{
    const QByteArray first = digestOf(database);
    DemoBuilder(database, report).build();
    EXPECT_EQ(digestOf(database), first);

    QTemporaryDir otherDir;
    Database other(otherDir.filePath(QStringLiteral("other.sqlite")));
    DemoBuilder(other, report).build();
    EXPECT_EQ(digestOf(other), first);
}


// The statistics of the parcels' land use and area agree with their rows.
TEST_F(DemoBuild, ParcelStatisticsCoverTheWholeLayer)
{
    constexpr std::int32_t parcels = SantiagoGenerator::kParcelsLayer;
    const auto fields = MapReader(database).layerFields(parcels);
    const auto* use = fields.named("USO");
    const auto* area = fields.named("AREA");
    ASSERT_TRUE(use && area);
    std::set<std::string> uses;
    double least = 1e300;
    double greatest = -1e300;
    for (const auto& row : AttributeReader(database).rows(parcels, {*use, *area}, {})) {
        uses.insert(row.values[0]);
        least = std::min(least, std::stod(row.values[1]));
        greatest = std::max(greatest, std::stod(row.values[1]));
    }
    FieldSummary summary(database);
    const auto distinct = summary.distinctValues(parcels, *use, 32767);
    EXPECT_GT(distinct.size(), 2u);
    EXPECT_EQ(std::set<std::string>(distinct.begin(), distinct.end()), uses);
    EXPECT_EQ(distinct.size(), uses.size());
    const auto range = summary.range(parcels, *area);
    ASSERT_EQ(range.size(), 2u);
    EXPECT_EQ(std::stod(range[0]), least);
    EXPECT_EQ(std::stod(range[1]), greatest);
}

// The relief covers the map's box in the viewer's UTM plane, half
// transparent, tiled, with overviews for the views from far out.
TEST(SantiagoRelief, IsATiledGeoTiffWithOverviewsOverTheBoxInTheViewersPlane)
{
    QTemporaryDir dir;
    const std::string path = dir.filePath(QStringLiteral("relief.tif")).toStdString();
    const double west = -70.70, south = -33.50, east = -70.60, north = -33.42;
    SantiagoRelief::write(path, west, south, east, north, 600);

    GDALDatasetH file = GDALOpen(path.c_str(), GA_ReadOnly);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(GDALGetRasterCount(file), 4);
    EXPECT_EQ(std::max(GDALGetRasterXSize(file), GDALGetRasterYSize(file)), 600);
    GDALRasterBandH red = GDALGetRasterBand(file, 1);
    EXPECT_GE(GDALGetOverviewCount(red), 3);
    int blockWidth = 0, blockHeight = 0;
    GDALGetBlockSize(red, &blockWidth, &blockHeight);
    EXPECT_EQ(std::tuple(blockWidth, blockHeight), std::tuple(256, 256));
    unsigned char alpha = 0;
    ASSERT_EQ(GDALRasterIO(GDALGetRasterBand(file, 4), GF_Read, 300, 200, 1, 1, &alpha, 1, 1, GDT_Byte, 0, 0), CE_None);
    EXPECT_EQ(alpha, 150);

    double transform[6] = {};
    ASSERT_EQ(GDALGetGeoTransform(file, transform), CE_None);
    const double right = transform[0] + GDALGetRasterXSize(file) * transform[1];
    const double bottom = transform[3] + GDALGetRasterYSize(file) * transform[5];
    std::unique_ptr<CProjection> utm;
    InitProjection(utm, 81, west, south, east, north);
    ASSERT_TRUE(utm);
    for (const auto& [lon, lat] : {std::pair(west, south), std::pair(east, north)}) {
        double x = 0, y = 0;
        ASSERT_TRUE(utm->Project(lon, lat, x, y));
        EXPECT_GE(x, transform[0] - 1e-6);
        EXPECT_LE(x, right + transform[1]);
        EXPECT_LE(y, transform[3] + 1e-6);
        EXPECT_GE(y, bottom + transform[5]);
    }
    EXPECT_NEAR(transform[1], -transform[5], 1e-9);
    GDALClose(file);
}

} // namespace
