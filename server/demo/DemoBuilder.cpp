#include "demo/DemoBuilder.h"

#include "demo/DemoData.h"
#include "import/LayerImporter.h"
#include "login/PasswordHash.h"
#include "storage/MapWriter.h"
#include "storage/UserStore.h"
#include "demo/SantiagoGenerator.h"
#include "demo/SantiagoRelief.h"

#include <QDir>

#include <stdexcept>

namespace orbelan::server {

namespace {

// The codes of the demo maps: Santiago is generated, the others are imported
// from public data packages.
constexpr std::int32_t kUnitedStates = 2;
constexpr std::int32_t kWorld = 3;
constexpr std::int32_t kDemoMaps[] = {SantiagoGenerator::kMapCode, kUnitedStates, kWorld};
// Longitude and latitude of the 48 conterminous states.
constexpr Extent kConterminousStates{-125.0, 24.0, -66.5, 49.5};
constexpr std::int16_t kAlbers = 1;
constexpr std::int16_t kLatitudeLongitude = 0;
constexpr std::int16_t kNoFill = 1;
// Label heights: county names from a view of a few states, country names
// from the whole world on; state names always.
constexpr float kCountyLabelsKm = 1200.0f;
// State outlines stand out over the one-pixel county outlines.
constexpr std::int16_t kStateOutlineWidth = 2;
constexpr float kCountryLabelsDegrees = 0.3f;

ImportOptions atlasLayer(const QString& source, const char* sourceLayer, std::int32_t map,
                         std::int32_t layer, const char* name)
{
    ImportOptions options;
    options.source = source;
    options.sourceLayer = QString::fromUtf8(sourceLayer);
    options.map = map;
    options.layerId = layer;
    options.layerName = QString::fromUtf8(name);
    options.labelField = QStringLiteral("name");
    return options;
}
constexpr std::int16_t kDraw = 3;
constexpr std::int16_t kView = 1;

} // namespace

DemoBuilder::DemoBuilder(Database& database, std::ostream& report)
    : database_(database),
      report_(report)
{
}

void DemoBuilder::build(const QString& dataFolder, const QString& imageFolder)
{
    database_.transaction([this, &dataFolder, &imageFolder] {
        MapWriter writer(database_);
        for (const std::int32_t code : kDemoMaps) {
            writer.removeMap(code);
        }
        SantiagoGenerator santiago(writer);
        const SantiagoGenerator::Counts counts = santiago.build();
        report_ << "Santiago (map " << SantiagoGenerator::kMapCode << "): " << counts.streets
                << " street segments, " << counts.parcels << " parcels, " << counts.places
                << " places of interest\n";
        writeRelief(santiago, imageFolder);
        importAtlases(dataFolder);
        addUsers();
        MapWriter(database_).indexAttributes();
    });
}

void DemoBuilder::writeRelief(const SantiagoGenerator& santiago, const QString& imageFolder)
{
    if (imageFolder.isEmpty()) {
        return;
    }
    if (!QDir().mkpath(imageFolder)) {
        throw std::runtime_error("cannot make the image folder " + imageFolder.toStdString());
    }
    const QString path = QDir(imageFolder).filePath(QString::fromLatin1(SantiagoRelief::kFileName));
    const std::array<double, 4> box = santiago.extent();
    SantiagoRelief::write(path.toStdString(), box[0], box[1], box[2], box[3]);
    report_ << "Santiago's shaded relief (layer " << SantiagoGenerator::kReliefLayer << "): " << path.toStdString()
            << "\n";
}

void DemoBuilder::importAtlases(const QString& dataFolder)
{
    if (dataFolder.isEmpty() || !DemoData::present(dataFolder)) {
        report_ << "skipped United States (map 2) and World (map 3): the us-atlas and "
                   "world-atlas data packages are not in "
                << (dataFolder.isEmpty() ? std::string("a data folder") : dataFolder.toStdString())
                << "\n";
        return;
    }
    LayerImporter importer(database_, report_);
    // Counties first, states drawn over them as outlines.
    ImportOptions counties =
        atlasLayer(DemoData::usAtlas(dataFolder), "counties", kUnitedStates, 201, "Counties");
    counties.mapName = QStringLiteral("United States");
    counties.projection = kAlbers;
    counties.labelZoomMax = kCountyLabelsKm;
    importer.import(counties);
    ImportOptions states =
        atlasLayer(DemoData::usAtlas(dataFolder), "states", kUnitedStates, 202, "States");
    states.fillStyle = kNoFill;
    states.lineWidth = kStateOutlineWidth;
    importer.import(states);
    // The atlas reaches from Guam to the Virgin Islands across the date line;
    // an equal-area cone fitted to all of that shows nothing. The map opens
    // on the conterminous states and pans to the rest.
    MapWriter(database_).setMapExtent(kUnitedStates, kConterminousStates);
    ImportOptions countries =
        atlasLayer(DemoData::worldAtlas(dataFolder), "countries", kWorld, 301, "Countries");
    countries.mapName = QStringLiteral("World");
    countries.projection = kLatitudeLongitude;
    countries.labelZoomMax = kCountryLabelsDegrees;
    importer.import(countries);
}

void DemoBuilder::addUsers()
{
    MapWriter writer(database_);
    UserStore users(database_);
    // Each demo user's password is the name.
    for (const auto& [id, name] : {std::pair{kAdmin, "admin"}, std::pair{kViewer, "visor"},
                                   std::pair{kGuest, "invitado"}}) {
        writer.ensureUser(id, QString::fromLatin1(name));
        users.setPasswordHash(name, PasswordHash::make(name));
    }
    for (const std::int32_t code : kDemoMaps) {
        if (!writer.mapExists(code)) {
            continue;
        }
        writer.grantMap(kAdmin, code);
        writer.setMapLevel(kAdmin, code, kDraw);
        writer.grantMap(kViewer, code);
        writer.setMapLevel(kViewer, code, kView);
        if (code != SantiagoGenerator::kMapCode) {
            writer.grantMap(kGuest, code);
            writer.setMapLevel(kGuest, code, kView);
        }
    }
    report_ << "users: " << kAdmin << " admin (draws on every layer), " << kViewer
            << " visor (views every layer), " << kGuest
            << " invitado (no access to Santiago); each one's password is the name\n";
}

} // namespace orbelan::server
