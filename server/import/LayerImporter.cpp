#include "import/LayerImporter.h"

#include "storage/AttributeTable.h"
#include "grid/GridCells.h"
#include "storage/MapWriter.h"
#include "import/OgrSource.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <stdexcept>
#include <unordered_set>

namespace orbelan::server {

namespace {

constexpr double kVerticesPerCell = 300.0;

constexpr std::int32_t rgb(std::int32_t red, std::int32_t green, std::int32_t blue)
{
    return red | (green << 8) | (blue << 16);
}

constexpr std::array kPalette = {
    rgb(141, 211, 199), rgb(255, 255, 179), rgb(190, 186, 218), rgb(251, 128, 114),
    rgb(128, 177, 211), rgb(253, 180, 98),  rgb(179, 222, 105), rgb(252, 205, 229),
    rgb(217, 217, 217), rgb(188, 128, 189), rgb(204, 235, 197), rgb(255, 237, 111),
};

// The position of the named field (case ignored); throws when there is none.
std::size_t fieldPosition(const ImportedLayer& layer, const QString& name)
{
    for (std::size_t i = 0; i < layer.fields.size(); ++i) {
        if (QString::fromStdString(layer.fields[i].name).compare(name, Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    throw std::invalid_argument("layer " + layer.name + " has no field " + name.toStdString());
}

constexpr double kSmallestCell = 1e-4;

// Two significant digits.
float roundedSize(double size)
{
    const double scale = std::pow(10.0, std::floor(std::log10(size)) - 1);
    return static_cast<float>(std::round(size / scale) * scale);
}

double meanVerticesPerCell(const ImportedLayer& layer, float size)
{
    const GridCells grid(size, size);
    std::unordered_set<std::int64_t> occupied;
    for (const StoredElement& element : layer.elements) {
        for (const messages::WirePoint& point : element.points) {
            const CellIndex cell = grid.cellOf(point.x, point.y);
            occupied.insert((std::int64_t{cell.row} << 32) ^
                            static_cast<std::uint32_t>(cell.column));
        }
    }
    return static_cast<double>(layer.vertexCount) /
           static_cast<double>(std::max<std::size_t>(occupied.size(), 1));
}

void styleFor(messages::LayerRecord& record)
{
    record.drawColor = record.type == 1 ? rgb(200, 30, 30) : rgb(90, 90, 90);
    record.drawWidth = record.type == 1 ? 5 : 1;
    record.fillColor = rgb(235, 230, 215);
}

} // namespace

LayerImporter::LayerImporter(Database& database, std::ostream& report)
    : database_(database),
      report_(report)
{
}

// Starts from the size that would share the vertices evenly over the extent,
// then halves it while the cells that hold data hold more than the target on
// average (real data is rarely spread evenly).
float LayerImporter::cellSize(const ImportedLayer& layer)
{
    const Extent& extent = layer.extent;
    const double cells = std::max(1.0, static_cast<double>(layer.vertexCount) / kVerticesPerCell);
    const double area =
        std::max(extent.maxX - extent.minX, 1e-4) * std::max(extent.maxY - extent.minY, 1e-4);
    float size = roundedSize(std::clamp(std::sqrt(area / cells), kSmallestCell, 45.0));
    while (size > kSmallestCell && meanVerticesPerCell(layer, size) > kVerticesPerCell) {
        size = roundedSize(size / 2.0);
    }
    return size;
}

std::int32_t LayerImporter::import(const ImportOptions& options)
{
    OgrSource source(options.source, options.sourceLayer);
    const ImportedLayer layer = source.read();
    messages::LayerRecord record = recordFor(layer, options);
    write(layer, record, options);
    report_ << "imported " << layer.elements.size() << " elements (" << layer.vertexCount
            << " vertices) as layer " << record.id << " \"" << record.name << "\" of map "
            << options.map << ", cells of " << record.gridDeltaX << "°";
    if (layer.skippedFeatures > 0 || layer.droppedHoles > 0) {
        report_ << "; skipped " << layer.skippedFeatures << " features of another kind, dropped "
                << layer.droppedHoles << " polygon holes";
    }
    if (layer.cutFeatures > 0) {
        report_ << "; split " << layer.cutFeatures << " features (" << layer.cutRings
                << " rings) at the antimeridian";
    }
    report_ << "\n";
    return record.id;
}

messages::LayerRecord LayerImporter::recordFor(const ImportedLayer& layer,
                                               const ImportOptions& options) const
{
    messages::LayerRecord record;
    record.id = options.layerId;
    record.name = options.layerName.isEmpty() ? layer.name : options.layerName.toStdString();
    record.type = layer.type;
    record.gridDeltaX = record.gridDeltaY = cellSize(layer);
    record.fields = layer.fields;
    styleFor(record);
    record.fillStyle = options.fillStyle;
    if (options.lineWidth > 0) {
        record.drawWidth = options.lineWidth;
    }
    if (!options.labelField.isEmpty()) {
        record.labelField = layer.fields[fieldPosition(layer, options.labelField)].name;
        record.labelVisibility = 1;
        record.labelZoomMax = options.labelZoomMax;
    }
    if (!options.themeField.isEmpty()) {
        record.thematicField = layer.fields[fieldPosition(layer, options.themeField)].name;
        record.thematicType = 1;
        addThemeClasses(record, layer);
    }
    return record;
}

// One class per distinct text value, when there are few enough of them.
void LayerImporter::addThemeClasses(messages::LayerRecord& record, const ImportedLayer& layer) const
{
    const std::size_t position = fieldPosition(layer, QString::fromStdString(record.thematicField));
    if (AttributeTable::columnType(layer.fields[position].type) != u"TEXT") {
        return;
    }
    std::set<std::string> values;
    for (const StoredElement& element : layer.elements) {
        if (position < element.attributes.size()) {
            values.insert(element.attributes[position].toString().trimmed().toStdString());
        }
    }
    if (values.size() > kMaximumThemeClasses) {
        return;
    }
    std::size_t colour = 0;
    for (const std::string& value : values) {
        record.classes.push_back(
            {value, value, record.drawColor, 0, record.drawWidth, kPalette[colour++], 0});
    }
}

void LayerImporter::write(const ImportedLayer& layer, messages::LayerRecord& record,
                          const ImportOptions& options)
{
    database_.transaction([&] {
        MapWriter writer(database_);
        if (!writer.mapExists(options.map)) {
            messages::MapDefinition header;
            header.name = options.mapName.isEmpty() ? record.name : options.mapName.toStdString();
            header.background = rgb(255, 255, 255);
            header.projection = options.projection;
            writer.createMap(options.map, header);
        }
        writer.extendMapExtent(options.map, layer.extent);
        record.id = writer.addLayer(options.map, record);
        for (const StoredElement& element : layer.elements) {
            writer.addElement(record.id, element);
        }
    });
}

} // namespace orbelan::server
