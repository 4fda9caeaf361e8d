#include "DemoBuilder.h"

#include "MapWriter.h"
#include "SantiagoGenerator.h"

namespace orbelan::server {

namespace {

// The codes of the demo maps: Santiago is generated, the others are imported
// from public data packages.
constexpr std::int32_t kDemoMaps[] = {SantiagoGenerator::kMapCode, 2, 3};
constexpr std::int16_t kDraw = 3;
constexpr std::int16_t kView = 1;

} // namespace

DemoBuilder::DemoBuilder(Database& database, std::ostream& report)
    : database_(database), report_(report)
{
}

void DemoBuilder::build()
{
    database_.transaction([this] {
        MapWriter writer(database_);
        for (const std::int32_t code : kDemoMaps) {
            writer.removeMap(code);
        }
        SantiagoGenerator santiago(writer);
        const SantiagoGenerator::Counts counts = santiago.build();
        report_ << "Santiago (map " << SantiagoGenerator::kMapCode << "): " << counts.streets
                << " street segments, " << counts.parcels << " parcels, " << counts.places
                << " places of interest\n";
        report_ << "skipped United States (map 2) and World (map 3): importing GDAL/OGR "
                   "sources is not part of this server yet\n";
        addUsers();
    });
}

void DemoBuilder::addUsers()
{
    MapWriter writer(database_);
    writer.ensureUser(kAdmin, QStringLiteral("admin"));
    writer.ensureUser(kViewer, QStringLiteral("visor"));
    writer.ensureUser(kGuest, QStringLiteral("invitado"));
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
            << " visor (views every layer), " << kGuest << " invitado (no access to Santiago)\n";
}

} // namespace orbelan::server
