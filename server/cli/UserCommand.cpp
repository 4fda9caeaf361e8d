#include "cli/UserCommand.h"

#include "storage/Database.h"
#include "storage/MapWriter.h"
#include "cli/OptionValues.h"

#include <QCommandLineParser>

#include <iostream>
#include <limits>
#include <optional>

namespace orbelan::server {

namespace {

constexpr std::int64_t kLongMax = std::numeric_limits<std::int32_t>::max();

const char* const kUsage =
    "Usage: orbelan-server user add --db FILE --name NAME [--id ID]\n"
    "       orbelan-server user grant --db FILE --user ID --map CODE [--level 0-3 [--layer ID]]\n"
    "add creates a user (password logins come later); grant lets the user open the map and,\n"
    "with --level, sets the access level (0 none, 1 viewer, 2 editor, 3 draw) on every layer\n"
    "of the map, or only on --layer.\n";

QCommandLineOption dbOption()
{
    return {QStringLiteral("db"), QStringLiteral("The map store (an SQLite file)."),
            QStringLiteral("FILE")};
}

} // namespace

int UserCommand::run(const QStringList& arguments)
{
    const QString action = arguments.value(1);
    QStringList rest = arguments;
    if (rest.size() > 1) {
        rest.removeAt(1);
    }
    if (action == u"add") {
        return add(rest);
    }
    if (action == u"grant") {
        return grant(rest);
    }
    const bool help = action == u"--help" || action == u"-h";
    (help ? std::cout : std::cerr) << kUsage;
    return help ? 0 : 1;
}

int UserCommand::add(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Adds a user."));
    parser.addHelpOption();
    parser.addOptions(
        {dbOption(),
         {QStringLiteral("name"), QStringLiteral("The user's name."), QStringLiteral("NAME")},
         {QStringLiteral("id"), QStringLiteral("The user's id (default: the next free one)."),
          QStringLiteral("ID")}});
    parser.process(arguments);

    Database database(OptionValues::required(parser, QStringLiteral("db")));
    std::optional<std::int32_t> id;
    if (parser.isSet(QStringLiteral("id"))) {
        id = static_cast<std::int32_t>(
            OptionValues::integer(parser, QStringLiteral("id"), 1, kLongMax));
    }
    const QString name = OptionValues::required(parser, QStringLiteral("name"));
    std::cout << "user " << MapWriter(database).addUser(name, id) << " " << name.toStdString()
              << "\n";
    return 0;
}

int UserCommand::grant(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Lets a user open a map and sets layer levels."));
    parser.addHelpOption();
    parser.addOptions(
        {dbOption(),
         {QStringLiteral("user"), QStringLiteral("The user's id."), QStringLiteral("ID")},
         {QStringLiteral("map"), QStringLiteral("The map's code."), QStringLiteral("CODE")},
         {QStringLiteral("level"), QStringLiteral("Access level 0 to 3."), QStringLiteral("N")},
         {QStringLiteral("layer"), QStringLiteral("Only this layer."), QStringLiteral("ID")}});
    parser.process(arguments);

    Database database(OptionValues::required(parser, QStringLiteral("db")));
    const auto user = static_cast<std::int32_t>(
        OptionValues::integer(parser, QStringLiteral("user"), 1, kLongMax));
    const auto map = static_cast<std::int32_t>(
        OptionValues::integer(parser, QStringLiteral("map"), 0, kLongMax));
    MapWriter writer(database);
    database.transaction([&] {
        writer.grantMap(user, map);
        if (!parser.isSet(QStringLiteral("level"))) {
            return;
        }
        const auto level =
            static_cast<std::int16_t>(OptionValues::integer(parser, QStringLiteral("level"), 0, 3));
        if (parser.isSet(QStringLiteral("layer"))) {
            writer.setLayerLevel(user,
                                 static_cast<std::int32_t>(OptionValues::integer(
                                     parser, QStringLiteral("layer"), 1, kLongMax)),
                                 level);
        } else {
            writer.setMapLevel(user, map, level);
        }
    });
    std::cout << "user " << user << " may open map " << map << "\n";
    return 0;
}

} // namespace orbelan::server
