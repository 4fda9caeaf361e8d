#include "cli/ServeCommand.h"

#include "storage/Database.h"
#include "storage/MapWriter.h"
#include "storage/StorageError.h"
#include "serving/MapServer.h"
#include "cli/LimitOptions.h"
#include "cli/LoginOptions.h"
#include "cli/OptionValues.h"
#include "cli/StopSignals.h"
#include "serving/ServerLog.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHostAddress>

#include <chrono>
#include <iostream>
#include <stdexcept>

#include <sys/resource.h>

namespace orbelan::server {

namespace {

// How long replies already being written may take to leave at a stop.
constexpr std::chrono::milliseconds kReplyDeadline{2000};

// Every connection takes a descriptor, and the usual soft limit of 1,024 is
// below the connections the server admits by default; the hard limit is
// what the system grants.
void raiseDescriptorLimit()
{
    rlimit descriptors{};
    if (getrlimit(RLIMIT_NOFILE, &descriptors) == 0 && descriptors.rlim_cur < descriptors.rlim_max) {
        descriptors.rlim_cur = descriptors.rlim_max;
        setrlimit(RLIMIT_NOFILE, &descriptors);
    }
}

// Stores made before attribute columns were indexed get their indexes; a
// store that cannot take them is still served, its conditions by scans.
void indexAttributes(Database& database, ServerLog& log)
{
    try {
        MapWriter(database).indexAttributes();
    } catch (const StorageError& error) {
        log.line(std::string("serving without indexes on the attribute columns: ") + error.what());
    }
}

} // namespace

int ServeCommand::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Serves the maps of a map store to Orbelan viewers until it is stopped."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("db"), QStringLiteral("The map store (an SQLite file)."),
         QStringLiteral("FILE")},
        {QStringLiteral("listen"), QStringLiteral("Address to listen on (default 127.0.0.1)."),
         QStringLiteral("ADDR"), QStringLiteral("127.0.0.1")},
        {QStringLiteral("port"), QStringLiteral("Port to listen on (default 10010)."),
         QStringLiteral("N"), QString::number(kDefaultPort)},
        {QStringLiteral("verbose"), QStringLiteral("Log one line per request.")},
    });
    LimitOptions::add(parser);
    LoginOptions::add(parser);
    parser.process(arguments);

    const QString path = OptionValues::required(parser, QStringLiteral("db"));
    if (!QFileInfo::exists(path)) {
        throw std::invalid_argument("there is no map store at " + path.toStdString() +
                                    "; build one with: orbelan-server demo --db " +
                                    path.toStdString());
    }
    const QHostAddress address(parser.value(QStringLiteral("listen")));
    if (address.isNull()) {
        throw std::invalid_argument("--listen needs an IP address");
    }
    const auto port =
        static_cast<quint16>(OptionValues::integer(parser, QStringLiteral("port"), 0, 65535));
    const ServingLimits limits = LimitOptions::read(parser);
    const LoginPolicy policy = LoginOptions::read(parser);
    raiseDescriptorLimit();

    Database database(path);
    ServerLog log(std::cerr, parser.isSet(QStringLiteral("verbose")));
    indexAttributes(database, log);
    MapServer server(database, log, limits, policy);
    if (policy.trustUserIds) {
        log.line("trusting the user ids of access requests: no login is needed");
    }
    if (!server.listen(address, port)) {
        throw std::runtime_error("cannot listen on " + address.toString().toStdString() + ":" +
                                 std::to_string(port) + ": " + server.errorString().toStdString());
    }
    StopSignals stop;
    QObject::connect(&stop, &StopSignals::stopRequested, &server, [&](const QString& name) {
        const int open = server.shutDown(kReplyDeadline);
        log.line("stopping on " + name.toStdString() + ": " + std::to_string(open) +
                 " connection(s) closed, the store is closed");
        QCoreApplication::quit();
    });
    // The store closes as this returns: SQLite checkpoints its log into the
    // file and removes the -wal and -shm files.
    return QCoreApplication::exec();
}

} // namespace orbelan::server
