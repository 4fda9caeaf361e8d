#include "cli/ImportCommand.h"

#include "storage/Database.h"
#include "import/LayerImporter.h"
#include "storage/MapWriter.h"
#include "cli/OptionValues.h"

#include <QCommandLineParser>

#include <iostream>
#include <limits>
#include <stdexcept>

namespace orbelan::server {

int ImportCommand::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Imports one layer of a vector source that GDAL/OGR reads (GeoJSON, TopoJSON, Shapefile, "
        "GeoPackage ...) into a map, transformed to WGS 84 longitude/latitude, multi-geometries "
        "split into elements, all in one transaction."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("db"), QStringLiteral("The map store (an SQLite file)."),
         QStringLiteral("FILE")},
        {QStringLiteral("map"), QStringLiteral("The map's code."), QStringLiteral("CODE")},
        {QStringLiteral("layer-name"), QStringLiteral("The layer's name."), QStringLiteral("NAME")},
        {QStringLiteral("label-field"), QStringLiteral("Field whose values label the elements."),
         QStringLiteral("F")},
        {QStringLiteral("label-zoom-max"),
         QStringLiteral("Highest view, in km (thousandths of a degree on a latitude/longitude map), "
                        "at which the labels show (default: always)."),
         QStringLiteral("H")},
        {QStringLiteral("theme-field"),
         QStringLiteral("Field whose values choose thematic classes."), QStringLiteral("F")},
        {QStringLiteral("source-layer"),
         QStringLiteral("Layer of the source (default: its first)."), QStringLiteral("NAME")},
        {QStringLiteral("map-name"), QStringLiteral("Name of the map when it is created."),
         QStringLiteral("NAME")},
        {QStringLiteral("projection"),
         QStringLiteral("Projection code of the map when it is created (default 0)."),
         QStringLiteral("N"), QStringLiteral("0")},
    });
    parser.addPositionalArgument(QStringLiteral("SOURCE"), QStringLiteral("The file to import."));
    parser.process(arguments);
    if (parser.positionalArguments().size() != 1) {
        throw std::invalid_argument("import needs exactly one SOURCE");
    }

    ImportOptions options;
    options.source = parser.positionalArguments().first();
    options.sourceLayer = parser.value(QStringLiteral("source-layer"));
    options.map = static_cast<std::int32_t>(OptionValues::integer(
        parser, QStringLiteral("map"), 0, std::numeric_limits<std::int32_t>::max()));
    options.layerName = parser.value(QStringLiteral("layer-name"));
    options.labelField = parser.value(QStringLiteral("label-field"));
    options.themeField = parser.value(QStringLiteral("theme-field"));
    if (parser.isSet(QStringLiteral("label-zoom-max"))) {
        options.labelZoomMax =
            static_cast<float>(OptionValues::positive(parser, QStringLiteral("label-zoom-max")));
    }
    options.mapName = parser.value(QStringLiteral("map-name"));
    options.projection = static_cast<std::int16_t>(
        OptionValues::integer(parser, QStringLiteral("projection"), 0, 32767));
    Database database(OptionValues::required(parser, QStringLiteral("db")));
    LayerImporter(database, std::cout).import(options);
    MapWriter(database).indexAttributes();
    return 0;
}

} // namespace orbelan::server
