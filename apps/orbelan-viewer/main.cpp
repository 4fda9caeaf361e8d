// orbelan-viewer: a window around one Viewer, or, with --headless, the same
// control driven by commands for scripts and end-to-end tests.

#include "orbelan-viewer/HeadlessHost.h"
#include "orbelan-viewer/HostOptions.h"
#include "orbelan-viewer/MainWindow.h"
#include "orbelan-viewer/WindowLogin.h"
#include "ui/ScriptedUiServices.h"
#include "ui/WidgetUiServices.h"
#include "viewer/SettingsPropertyBag.h"
#include "viewer/Viewer.h"

#include <QApplication>
#include <QSettings>

#include <iostream>
#include <memory>

using namespace orbelan;

namespace {

const QString kPropertyGroup = QStringLiteral("Viewer");
// How long --snapshot waits for a map to load.
constexpr int kSnapshotSeconds = 120;

std::unique_ptr<QSettings> openSettings(const HostOptions& options)
{
    if (!options.settingsFile.isEmpty()) {
        return std::make_unique<QSettings>(options.settingsFile, QSettings::IniFormat);
    }
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                       QStringLiteral("Orbelan"), QStringLiteral("orbelan-viewer"));
}

// The saved properties, then what the command line overrides.
void configure(Viewer& viewer, const HostOptions& options, const PropertyBag& bag)
{
    viewer.ReadProperties(bag);
    if (options.url) viewer.setURL(*options.url);
    if (options.port) viewer.setPort(*options.port);
    if (options.user) viewer.setIDUser(*options.user);
    if (options.map) viewer.setMapCode(*options.map);
    if (options.toolTipLayer) viewer.SetToolTip(*options.toolTipLayer, QString());
    if (options.imagePath) viewer.setImagePath(*options.imagePath);
    viewer.resize(options.size);
}

int runHeadless(std::unique_ptr<Viewer> viewer, const HostOptions& options)
{
    ScriptedUiServices ui;
    viewer->setUiServices(ui);
    HeadlessHost host(*viewer, ui, std::cout);
    // With --password the host logs in before the control first shows.
    if (options.password && !host.logInControl(*options.userName, *options.password, options.map)) {
        return 1;
    }
    if (options.show) {
        viewer->show();
    }
    if (!options.snapshotFile.isEmpty()) {
        const bool saved = host.snapshotWhenLoaded(options.snapshotFile, kSnapshotSeconds);
        viewer.reset();
        return saved ? 0 : 1;
    }
    if (options.commandsFile.isEmpty()) {
        host.readStandardInput();
    } else if (!host.readFile(options.commandsFile)) {
        return 1;
    }
    const int status = QApplication::exec();
    // The control goes first: while it closes its connection it may still
    // report to the host and the services.
    viewer.reset();
    return status;
}

// Without a user given on the command line, the login form asks for one.
int runWindow(Viewer* viewer, const HostOptions& options, PropertyBag& bag, QSettings& settings)
{
    WidgetUiServices ui;
    if (!options.user && !logInForWindow(*viewer, options, ui, settings)) {
        delete viewer;
        return 0;
    }
    MainWindow window(viewer, ui);
    window.resize(options.size);
    if (options.show) {
        window.show();
    }
    const int status = QApplication::exec();
    viewer->WriteProperties(bag);
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    int exitCode = 0;
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    const auto options = HostOptions::parse(arguments, exitCode);
    if (!options) {
        return exitCode;
    }
    if (options->headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orbelan-viewer"));

    const auto settings = openSettings(*options);
    SettingsPropertyBag bag(*settings, kPropertyGroup);
    auto viewer = std::make_unique<Viewer>();
    configure(*viewer, *options, bag);
    if (options->headless) {
        return runHeadless(std::move(viewer), *options);
    }
    return runWindow(viewer.release(), *options, bag, *settings);
}
