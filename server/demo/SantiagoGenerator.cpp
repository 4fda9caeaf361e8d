#include "demo/SantiagoGenerator.h"

#include "protocol/FieldTypes.h"
#include "demo/SantiagoNames.h"
#include "demo/SantiagoRelief.h"

#include <cmath>
#include <map>

namespace orbelan::server {

namespace {

constexpr std::uint64_t kSeed = 0x5A4E7C1A60ull;
constexpr int kParcelsPerSide = 2;
// Positions in SantiagoNames::landUses().
constexpr std::size_t kResidential = 0;
constexpr std::size_t kCommercial = 1;
constexpr std::int16_t kUtm19South = 81;
// The parcels show from the first view of the whole city on.
constexpr float kParcelsKm = 20.0f;

constexpr std::int32_t rgb(std::int32_t red, std::int32_t green, std::int32_t blue)
{
    return red | (green << 8) | (blue << 16);
}

constexpr std::int32_t kParcelOutline = rgb(255, 255, 255);

QString text(std::string_view value)
{
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

messages::LayerRecord streetsLayer()
{
    messages::LayerRecord layer;
    layer.id = SantiagoGenerator::kStreetsLayer;
    layer.name = "Calles";
    layer.type = 2;
    layer.gridDeltaX = layer.gridDeltaY = 0.01f;
    layer.drawColor = rgb(120, 120, 120);
    layer.drawWidth = 2;
    layer.labelField = "STREET";
    layer.labelZoomMax = 3.0f;
    layer.labelVisibility = 1;
    layer.labelColor = rgb(60, 60, 60);
    layer.fields = {{"STREET", fieldtype::kVarChar}, {"FROML", fieldtype::kInteger}, {"TOL", fieldtype::kInteger},
                    {"FROMR", fieldtype::kInteger},  {"TOR", fieldtype::kInteger},   {"DIR", fieldtype::kSmallInteger}};
    return layer;
}

messages::LayerRecord parcelsLayer()
{
    messages::LayerRecord layer;
    layer.id = SantiagoGenerator::kParcelsLayer;
    layer.name = "Predios";
    layer.type = 4;
    layer.gridDeltaX = layer.gridDeltaY = 0.005f;
    layer.zoomMax = kParcelsKm;
    layer.drawColor = kParcelOutline;
    layer.fillColor = rgb(240, 240, 240);
    layer.thematicField = "USO";
    layer.thematicType = 1;
    layer.fields = {{"ROL", fieldtype::kVarChar}, {"USO", fieldtype::kVarChar}, {"AREA", fieldtype::kDouble}};
    for (const auto& use : SantiagoNames::landUses()) {
        layer.classes.push_back({std::string(use.name), std::string(use.name), kParcelOutline,
                                 0, 1, use.fillColor, 0});
    }
    return layer;
}

// No grid cells: the viewer draws the file of the layer's name.
messages::LayerRecord reliefLayer()
{
    messages::LayerRecord layer;
    layer.id = SantiagoGenerator::kReliefLayer;
    layer.name = SantiagoRelief::kFileName;
    layer.type = 5;
    return layer;
}

messages::LayerRecord placesLayer()
{
    messages::LayerRecord layer;
    layer.id = SantiagoGenerator::kPlacesLayer;
    layer.name = "Lugares de interés";
    layer.type = 1;
    layer.gridDeltaX = layer.gridDeltaY = 0.03f;
    layer.zoomMax = 4.0f;
    layer.drawColor = rgb(200, 0, 0);
    layer.drawWidth = 6;
    layer.labelField = "NOMBRE";
    layer.labelZoomMax = 1.5f;
    layer.labelVisibility = 1;
    layer.labelBold = 1;
    layer.labelColor = rgb(30, 30, 30);
    layer.thematicField = "TIPO";
    layer.thematicType = 1;
    layer.fields = {{"NOMBRE", fieldtype::kVarChar}, {"TIPO", fieldtype::kVarChar}};
    for (const auto& kind : SantiagoNames::placeKinds()) {
        layer.classes.push_back({std::string(kind.name), std::string(kind.name), kind.fillColor, 0,
                                 6, kind.fillColor, 0});
    }
    return layer;
}

// Square metres of a ring of longitude/latitude vertices, on a local plane.
double areaOf(const std::vector<messages::WirePoint>& ring)
{
    const double metresPerDegreeY = 110'900.0;
    const double metresPerDegreeX = metresPerDegreeY * std::cos(ring.front().y * M_PI / 180.0);
    double twice = 0.0;
    for (std::size_t k = 0; k + 1 < ring.size(); ++k) {
        twice += ring[k].x * ring[k + 1].y - ring[k + 1].x * ring[k].y;
    }
    return std::round(std::abs(twice) / 2 * metresPerDegreeX * metresPerDegreeY * 10) / 10;
}

std::string streetName(std::span<const std::string_view> names, int line, const char* numbered)
{
    if (static_cast<std::size_t>(line) < names.size()) {
        return std::string(names[static_cast<std::size_t>(line)]);
    }
    return numbered + std::to_string(line - static_cast<int>(names.size()) + 1);
}

// Avenues and every fourth street carry traffic both ways; the others
// alternate their one-way direction (1 along the vertex order, -1 against).
int directionOf(const std::string& name, int line)
{
    if (name.starts_with("Avenida") || line % 4 == 0) {
        return 0;
    }
    return line % 2 == 0 ? -1 : 1;
}

} // namespace

SantiagoGenerator::SantiagoGenerator(MapWriter& writer)
    : writer_(writer),
      random_(kSeed),
      grid_(random_)
{
}

SantiagoGenerator::Counts SantiagoGenerator::build()
{
    counts_ = {};
    createMapAndLayers();
    addEastWestStreets();
    addNorthSouthStreets();
    addParcels();
    addPlaces();
    return counts_;
}

std::array<double, 4> SantiagoGenerator::extent() const
{
    const messages::WirePoint southWest = grid_.node(0, 0);
    const messages::WirePoint northEast =
        grid_.node(SantiagoGrid::kBlocksEastWest, SantiagoGrid::kBlocksNorthSouth);
    // As the map definition carries them.
    return {static_cast<float>(southWest.x - 0.002), static_cast<float>(southWest.y - 0.002),
            static_cast<float>(northEast.x + 0.002), static_cast<float>(northEast.y + 0.002)};
}

void SantiagoGenerator::createMapAndLayers()
{
    const std::array<double, 4> box = extent();
    messages::MapDefinition header;
    header.name = "Santiago";
    header.minX = static_cast<float>(box[0]);
    header.minY = static_cast<float>(box[1]);
    header.maxX = static_cast<float>(box[2]);
    header.maxY = static_cast<float>(box[3]);
    header.background = rgb(250, 250, 245);
    header.projection = kUtm19South;
    writer_.createMap(kMapCode, header);
    // The relief lies under everything: around the city it shows the land,
    // and over the parcels it would dull their land-use colours.
    writer_.addLayer(kMapCode, reliefLayer());
    writer_.addLayer(kMapCode, parcelsLayer());
    writer_.addLayer(kMapCode, streetsLayer());
    writer_.addLayer(kMapCode, placesLayer());
}

void SantiagoGenerator::addEastWestStreets()
{
    for (int j = 0; j <= SantiagoGrid::kBlocksNorthSouth; ++j) {
        const std::string name = streetName(SantiagoNames::eastWestStreets(), j, "Calle ");
        for (int i = 0; i < SantiagoGrid::kBlocksEastWest; ++i) {
            addStreet(grid_.node(i, j), grid_.node(i + 1, j), name, i, directionOf(name, j));
        }
    }
}

void SantiagoGenerator::addNorthSouthStreets()
{
    for (int i = 0; i <= SantiagoGrid::kBlocksEastWest; ++i) {
        const std::string name = streetName(SantiagoNames::northSouthStreets(), i, "Pasaje ");
        for (int j = 0; j < SantiagoGrid::kBlocksNorthSouth; ++j) {
            addStreet(grid_.node(i, j), grid_.node(i, j + 1), name, j, directionOf(name, i));
        }
    }
}

// Odd numbers on the left, even on the right, a hundred per block.
void SantiagoGenerator::addStreet(const messages::WirePoint& from, const messages::WirePoint& to,
                                  const std::string& name, int block, int direction)
{
    const int first = block * 100;
    writer_.addElement(kStreetsLayer, {static_cast<std::int32_t>(++counts_.streets),
                                       {from, to},
                                       {QString::fromStdString(name), first + 1, first + 99,
                                        first + 2, first + 98, direction}});
}

void SantiagoGenerator::addParcels()
{
    for (int j = 0; j < SantiagoGrid::kBlocksNorthSouth; ++j) {
        for (int i = 0; i < SantiagoGrid::kBlocksEastWest; ++i) {
            addBlockParcels(i, j);
        }
    }
}

// A block mostly keeps one use: commercial near the centre, residential
// further out, now and then something else.
std::size_t SantiagoGenerator::chooseBlockUse(int i, int j)
{
    const double dx = (i - SantiagoGrid::kBlocksEastWest / 2.0) / SantiagoGrid::kBlocksEastWest;
    const double dy = (j - SantiagoGrid::kBlocksNorthSouth / 2.0) / SantiagoGrid::kBlocksNorthSouth;
    if (std::hypot(dx, dy) < 0.15 && random_.below(3) != 0) {
        return kCommercial;
    }
    if (random_.below(10) < 6) {
        return kResidential;
    }
    return random_.below(SantiagoNames::landUses().size());
}

// A parcel now and then differs from its block.
void SantiagoGenerator::addBlockParcels(int i, int j)
{
    const auto uses = SantiagoNames::landUses();
    const std::size_t blockUse = chooseBlockUse(i, j);
    for (int b = 0; b < kParcelsPerSide; ++b) {
        for (int a = 0; a < kParcelsPerSide; ++a) {
            const std::size_t use = random_.below(5) == 0 ? random_.below(uses.size()) : blockUse;
            auto ring = grid_.parcel(i, j, a, b, kParcelsPerSide);
            const double area = areaOf(ring);
            const int block = j * SantiagoGrid::kBlocksEastWest + i + 1;
            writer_.addElement(
                kParcelsLayer,
                {static_cast<std::int32_t>(++counts_.parcels),
                 std::move(ring),
                 {QStringLiteral("%1-%2").arg(block).arg(b * kParcelsPerSide + a + 1),
                  text(uses[use].name), area}});
        }
    }
}

void SantiagoGenerator::addPlaces()
{
    const auto kinds = SantiagoNames::placeKinds();
    const auto names = SantiagoNames::placeNames();
    std::map<std::string, int> seen;
    for (int k = 0; k < kPlaceCount; ++k) {
        const int i = static_cast<int>(random_.below(SantiagoGrid::kBlocksEastWest));
        const int j = static_cast<int>(random_.below(SantiagoGrid::kBlocksNorthSouth));
        const auto point =
            grid_.insideBlock(i, j, random_.uniform(0.1, 0.9), random_.uniform(0.1, 0.9));
        const std::string_view kind = kinds[random_.below(kinds.size())].name;
        std::string name =
            std::string(kind) + " " + std::string(names[random_.below(names.size())]);
        if (const int earlier = seen[name]++; earlier > 0) {
            name.append(" ").append(std::to_string(earlier + 1));
        }
        writer_.addElement(kPlacesLayer, {static_cast<std::int32_t>(++counts_.places),
                                          {point},
                                          {QString::fromStdString(name), text(kind)}});
    }
}

} // namespace orbelan::server
