#include "DemoCommand.h"

#include "Database.h"
#include "DemoBuilder.h"
#include "OptionValues.h"

#include <QCommandLineParser>

#include <iostream>

namespace orbelan::server {

int DemoCommand::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Builds the demo maps and users into a map store (created when missing); demo maps "
        "already there are built again. The result is the same every time."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("db"), QStringLiteral("The map store (an SQLite file)."),
                      QStringLiteral("FILE")});
    parser.process(arguments);

    Database database(OptionValues::required(parser, QStringLiteral("db")));
    DemoBuilder(database, std::cout).build();
    return 0;
}

} // namespace orbelan::server
