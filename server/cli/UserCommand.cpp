#include "cli/UserCommand.h"

#include "storage/Database.h"
#include "storage/MapWriter.h"
#include "storage/UserStore.h"
#include "cli/OptionValues.h"
#include "login/PasswordHash.h"

#include <QCommandLineParser>

#include <iostream>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

#include <termios.h>
#include <unistd.h>

namespace orbelan::server {

namespace {

constexpr std::int64_t kLongMax = std::numeric_limits<std::int32_t>::max();

const char* const kUsage =
    "Usage: orbelan-server user add --db FILE --name NAME [--id ID]\n"
    "       orbelan-server user grant --db FILE --user ID --map CODE [--level 0-3 [--layer ID]]\n"
    "       orbelan-server user passwd --db FILE --name NAME\n"
    "add creates a user (who cannot log in until given a password); grant lets the user open\n"
    "the map and, with --level, sets the access level (0 none, 1 viewer, 2 editor, 3 draw) on\n"
    "every layer of the map, or only on --layer; passwd sets the user's password, read from\n"
    "stdin (one line; asked for twice, unseen, on a terminal).\n";

QCommandLineOption dbOption()
{
    return {QStringLiteral("db"), QStringLiteral("The map store (an SQLite file)."),
            QStringLiteral("FILE")};
}

// One line of stdin without its line end; shown as typed unless echo is off.
std::string readLine(bool echo)
{
    termios saved{};
    const bool terminal = !echo && tcgetattr(STDIN_FILENO, &saved) == 0;
    if (terminal) {
        termios quiet = saved;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    }
    std::string line;
    std::getline(std::cin, line);
    if (terminal) {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &saved);
        std::cerr << "\n";
    }
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return line;
}

// The new password: one line of stdin, or, on a terminal, typed twice unseen.
std::string readNewPassword()
{
    if (!isatty(STDIN_FILENO)) {
        return readLine(true);
    }
    std::cerr << "New password: " << std::flush;
    std::string password = readLine(false);
    std::cerr << "Again: " << std::flush;
    std::string again = readLine(false);
    const bool same = password == again;
    PasswordHash::wipe(again);
    if (!same) {
        PasswordHash::wipe(password);
        throw std::invalid_argument("the two passwords differ; nothing changed");
    }
    return password;
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
    if (action == u"passwd") {
        return passwd(rest);
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

int UserCommand::passwd(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Sets a user's password, read from stdin (never from the command line)."));
    parser.addHelpOption();
    parser.addOptions(
        {dbOption(),
         {QStringLiteral("name"), QStringLiteral("The user's name."), QStringLiteral("NAME")}});
    parser.process(arguments);

    Database database(OptionValues::required(parser, QStringLiteral("db")));
    const std::string name = OptionValues::required(parser, QStringLiteral("name")).toStdString();
    UserStore users(database);
    if (!users.byName(name)) {
        throw std::invalid_argument("there is no user named \"" + name +
                                    "\"; add one with: orbelan-server user add");
    }
    std::string password = readNewPassword();
    if (password.empty()) {
        throw std::invalid_argument("the password is empty; nothing changed");
    }
    const std::string hash = PasswordHash::make(password);
    PasswordHash::wipe(password);
    users.setPasswordHash(name, hash);
    std::cout << "password of " << name << " set\n";
    return 0;
}

} // namespace orbelan::server
