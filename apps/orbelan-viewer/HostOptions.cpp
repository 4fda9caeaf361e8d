#include "orbelan-viewer/HostOptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <climits>
#include <iostream>

namespace orbelan {

namespace {

constexpr int kHighestPort = 65535;

std::optional<int> integer(const QCommandLineParser& parser, const QString& name, bool& ok, int lowest = INT_MIN,
                           int highest = INT_MAX)
{
    if (!parser.isSet(name)) {
        return std::nullopt;
    }
    bool valid = false;
    const int value = parser.value(name).toInt(&valid);
    if (!valid) {
        std::cerr << "orbelan-viewer: --" << name.toStdString() << " needs a whole number, not \""
                  << parser.value(name).toStdString() << "\"\n";
        ok = false;
    } else if (value < lowest || value > highest) {
        std::cerr << "orbelan-viewer: --" << name.toStdString() << " needs a number from " << lowest << " to "
                  << highest << ", not " << value << "\n";
        ok = false;
    }
    return value;
}

} // namespace

std::optional<QSize> HostOptions::parseSize(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

std::optional<HostOptions> HostOptions::parse(const QStringList& arguments, int& exitCode)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows a map of an Orbelan map server."));
    parser.addHelpOption();
    parser.addOptions({
        {"url", "Map server host (overrides the saved URL property).", "HOST"},
        {"port", "Map server port (overrides the saved port property).", "N"},
        {"user", "User id (IDUser); with --password, the user name to log in with.", "ID|NAME"},
        {"password", "Log in as --user with this password instead of asking.", "PW"},
        {"map", "Map code (MapCode).", "CODE"},
        {"tooltip", "Show the label of LAYER's element under the resting mouse (SetToolTip).", "LAYER"},
        {"size", "Size of the control, for example 800x600.", "WxH"},
        {"headless", "Run without a window: commands on stdin, events on stdout."},
        {"commands", "Read the headless commands from FILE instead of stdin.", "FILE"},
        {"no-show", "Do not show the control at start."},
        {"snapshot", "Headless: save the map's image to FILE once it has loaded, then exit.", "FILE"},
        {"settings", "Keep the control's properties in this INI file.", "FILE"},
        {"image-path", "Folder of the raster files of image layers (ImagePath).", "DIR"},
    });
    exitCode = 0;
    if (!parser.parse(arguments)) {
        std::cerr << "orbelan-viewer: " << parser.errorText().toStdString() << "\n";
        exitCode = 2;
        return std::nullopt;
    }
    if (parser.isSet("help")) {
        std::cout << parser.helpText().toStdString();
        return std::nullopt;
    }

    HostOptions options;
    bool ok = true;
    if (parser.isSet("url")) {
        options.url = parser.value("url");
    }
    options.port = integer(parser, "port", ok, 0, kHighestPort);
    if (parser.isSet("password")) {
        options.password = parser.value("password");
        options.userName = parser.value("user");
        if (options.userName->isEmpty()) {
            std::cerr << "orbelan-viewer: --password needs --user NAME\n";
            ok = false;
        }
    } else {
        bool userOk = true;
        options.user = integer(parser, "user", userOk);
        if (!userOk) {
            std::cerr << "orbelan-viewer: a user name logs in with --password\n";
            ok = false;
        }
    }
    options.map = integer(parser, "map", ok);
    options.toolTipLayer = integer(parser, "tooltip", ok);
    if (parser.isSet("size")) {
        const auto size = parseSize(parser.value("size"));
        if (!size) {
            std::cerr << "orbelan-viewer: --size needs WIDTHxHEIGHT, for example 800x600\n";
            ok = false;
        }
        options.size = size.value_or(options.size);
    }
    options.headless = parser.isSet("headless");
    options.show = !parser.isSet("no-show");
    options.commandsFile = parser.value("commands");
    options.settingsFile = parser.value("settings");
    options.snapshotFile = parser.value("snapshot");
    if (parser.isSet("image-path")) {
        options.imagePath = parser.value("image-path");
    }
    if (!options.snapshotFile.isEmpty()) {
        options.headless = true;
    }
    if (!ok) {
        exitCode = 2;
        return std::nullopt;
    }
    return options;
}

} // namespace orbelan
