#include "cli/CommandLine.h"

#include "cli/DemoCommand.h"
#include "cli/ImportCommand.h"
#include "cli/ServeCommand.h"
#include "cli/UserCommand.h"

#include <iostream>
#include <stdexcept>

namespace orbelan::server {

namespace {

const char* const kUsage =
    "Usage: orbelan-server COMMAND [OPTIONS]\n"
    "The reference map server of Orbelan Viewer.\n\n"
    "Commands:\n"
    "  serve --db FILE [--listen ADDR] [--port N] [--verbose]\n"
    "                 serve the maps of a map store (default 127.0.0.1:10010)\n"
    "  demo --db FILE build the demo maps and users into a map store\n"
    "  import --db FILE --map CODE [--layer-name NAME] [--label-field F] [--theme-field F] SOURCE\n"
    "                 import one layer of a GDAL/OGR vector source into a map\n"
    "  user add|grant|passwd manage users, their passwords, maps and layer levels\n\n"
    "orbelan-server COMMAND --help tells more about each command.\n";

// The command's own arguments, with a program name in front for the parser.
QStringList commandArguments(const QStringList& arguments)
{
    QStringList rest = arguments.mid(2);
    rest.prepend(arguments.value(0) + QLatin1Char(' ') + arguments.value(1));
    return rest;
}

int dispatch(const QStringList& arguments)
{
    const QString command = arguments.value(1);
    if (command == u"serve") {
        return ServeCommand::run(commandArguments(arguments));
    }
    if (command == u"demo") {
        return DemoCommand::run(commandArguments(arguments));
    }
    if (command == u"import") {
        return ImportCommand::run(commandArguments(arguments));
    }
    if (command == u"user") {
        return UserCommand::run(commandArguments(arguments));
    }
    const bool help = command == u"--help" || command == u"-h" || command == u"help";
    (help ? std::cout : std::cerr) << kUsage;
    return help ? 0 : 1;
}

} // namespace

int CommandLine::run(const QStringList& arguments)
{
    try {
        return dispatch(arguments);
    } catch (const std::exception& error) {
        std::cerr << "orbelan-server: " << error.what() << "\n";
        return 1;
    }
}

} // namespace orbelan::server
