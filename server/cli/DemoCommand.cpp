#include "cli/DemoCommand.h"

#include "storage/Database.h"
#include "demo/DemoBuilder.h"
#include "cli/OptionValues.h"

#include "demo/DemoData.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <iostream>

namespace orbelan::server {

int DemoCommand::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Builds the demo maps and users into a map store (created when missing); demo maps "
        "already there are built again. The result is the same every time."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("db"), QStringLiteral("The map store (an SQLite file)."),
         QStringLiteral("FILE")},
        {QStringLiteral("data"),
         QStringLiteral(
             "Folder for the us-atlas and world-atlas data packages, fetched with npm when "
             "missing (default: demo-data beside the program's folder)."),
         QStringLiteral("DIR"),
         QCoreApplication::applicationDirPath() + QStringLiteral("/../demo-data")},
        {QStringLiteral("images"),
         QStringLiteral("Folder for the raster files of image layers, the viewer's ImagePath "
                        "(default: demo-images beside the map store)."),
         QStringLiteral("DIR")},
        {QStringLiteral("offline"),
         QStringLiteral("Do not run npm; use the data folder as it is.")},
    });
    parser.process(arguments);

    const QString store = OptionValues::required(parser, QStringLiteral("db"));
    Database database(store);
    const QString images = parser.isSet(QStringLiteral("images"))
                               ? parser.value(QStringLiteral("images"))
                               : QFileInfo(store).absoluteDir().filePath(QStringLiteral("demo-images"));
    const QString data = QDir::cleanPath(parser.value(QStringLiteral("data")));
    if (!parser.isSet(QStringLiteral("offline"))) {
        DemoData::fetch(data, std::cout);
    }
    DemoBuilder(database, std::cout).build(data, QDir::cleanPath(images));
    return 0;
}

} // namespace orbelan::server
