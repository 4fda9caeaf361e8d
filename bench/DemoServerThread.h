#pragma once

// A demo map store in a temporary folder and orbelan-server serving it from a
// thread of its own, for benchmarks that need a real server on loopback.

#include "storage/Database.h"
#include "demo/DemoBuilder.h"
#include "serving/MapServer.h"
#include "serving/ServerLog.h"

#include <QHostAddress>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <sstream>

namespace orbelan {

// dataFolder holds the npm atlas packages; empty builds Santiago alone.
struct DemoStore {
    explicit DemoStore(const QString& dataFolder = {})
    {
        server::Database database(path);
        std::ostringstream report;
        server::DemoBuilder(database, report).build(dataFolder);
    }

    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("demo.sqlite"));
};

// The server over a demo store, in a thread of its own.
class ServerUnderLoad : public QThread {
public:
    explicit ServerUnderLoad(QString path, const server::ServingLimits& limits = {},
                             server::LoginPolicy policy = server::LoginPolicy::trustingUserIds())
        : path_(std::move(path)),
          limits_(limits),
          policy_(std::move(policy))
    {
    }
    ~ServerUnderLoad() override
    {
        quit();
        wait();
    }
    quint16 startServing()
    {
        start();
        while (port_ == 0 && isRunning()) {
            QThread::msleep(5);
        }
        return port_;
    }

protected:
    void run() override
    {
        server::Database database(path_);
        std::ostringstream quiet;
        server::ServerLog log(quiet, false);
        server::MapServer mapServer(database, log, limits_, policy_);
        if (mapServer.listen(QHostAddress::LocalHost, 0)) {
            port_ = mapServer.port();
            exec();
        }
    }

private:
    QString path_;
    server::ServingLimits limits_;
    server::LoginPolicy policy_;
    std::atomic<quint16> port_{0};
};

} // namespace orbelan
