#include "demo/DemoData.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace orbelan::server {

namespace {

constexpr int kNpmTimeoutMs = 180'000;

} // namespace

QString DemoData::usAtlas(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("node_modules/us-atlas/counties-10m.json"));
}

QString DemoData::worldAtlas(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("node_modules/world-atlas/countries-50m.json"));
}

bool DemoData::present(const QString& folder)
{
    return QFileInfo::exists(usAtlas(folder)) && QFileInfo::exists(worldAtlas(folder));
}

bool DemoData::fetch(const QString& folder, std::ostream& report)
{
    if (present(folder)) {
        return true;
    }
    QDir().mkpath(folder);
    QProcess npm;
    npm.setProcessChannelMode(QProcess::MergedChannels);
    npm.start(QStringLiteral("npm"), {QStringLiteral("install"), QStringLiteral("--prefix"), folder,
                                      QStringLiteral("--no-save"), QStringLiteral("--no-audit"),
                                      QStringLiteral("--no-fund"), QStringLiteral("us-atlas@3.0.1"),
                                      QStringLiteral("world-atlas@2.0.2")});
    const bool finished = npm.waitForFinished(kNpmTimeoutMs);
    if (!finished || npm.exitStatus() != QProcess::NormalExit || npm.exitCode() != 0 ||
        !present(folder)) {
        report << "npm could not fetch us-atlas and world-atlas into " << folder.toStdString()
               << ": "
               << (npm.error() == QProcess::FailedToStart ? std::string("npm is not installed")
                                                          : npm.readAll().trimmed().toStdString())
               << "\n";
        return false;
    }
    return true;
}

} // namespace orbelan::server
