#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace orbelan {

// The command line of orbelan-viewer.
struct HostOptions {
    std::optional<QString> url;
    std::optional<int> port;
    // --user without --password: the user's id, trusted as it is.
    std::optional<int> user;
    // --user with --password: the name and password to log in with.
    std::optional<QString> userName;
    std::optional<QString> password;
    std::optional<int> map;
    // The layer whose labels the map tooltip shows (SetToolTip).
    std::optional<int> toolTipLayer;
    QSize size{800, 600};
    bool headless = false;
    bool show = true;
    // Commands for the headless mode; empty means standard input.
    QString commandsFile;
    // Headless: save the image here once the map has loaded, then exit.
    QString snapshotFile;
    // Where the control's properties persist; empty means the user's settings.
    QString settingsFile;
    // The folder of the raster files of image layers (ImagePath).
    std::optional<QString> imagePath;

    // Parses the arguments (argv[0] first). Prints help or an error and
    // returns nothing when the program should stop; exitCode tells how.
    static std::optional<HostOptions> parse(const QStringList& arguments, int& exitCode);
    // WIDTHxHEIGHT (800x600), each up to five digits; nothing for other text.
    static std::optional<QSize> parseSize(const QString& text);
};

} // namespace orbelan
