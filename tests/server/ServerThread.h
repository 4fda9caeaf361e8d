#pragma once

#include "login/LoginPolicy.h"
#include "serving/ServingLimits.h"

#include <QString>
#include <QThread>

#include <atomic>
#include <sstream>
#include <mutex>
#include <string>

// Runs a MapServer on 127.0.0.1 (a free port) over the given store in a
// thread of its own, so that tests may wait on their sockets blocking.
class ServerThread : public QThread {
public:
    explicit ServerThread(QString databasePath, const orbelan::server::ServingLimits& limits = {},
                          orbelan::server::LoginPolicy policy =
                              orbelan::server::LoginPolicy::trustingUserIds());
    ~ServerThread() override;

    // Starts the thread and waits until the server listens.
    quint16 start();
    // What the server has logged so far.
    std::string log();

protected:
    void run() override;

private:
    QString databasePath_;
    orbelan::server::ServingLimits limits_;
    orbelan::server::LoginPolicy policy_;
    std::atomic<quint16> port_{0};
    std::mutex logMutex_;
    std::ostringstream log_;
};
