#include "ServerThread.h"

#include "storage/Database.h"
#include "serving/MapServer.h"
#include "serving/ServerLog.h"

#include <QEventLoop>
#include <QHostAddress>

#include <utility>

using namespace orbelan::server;

namespace {

// Collects the log lines of the server thread for the test thread.
class LockedBuffer : public std::stringbuf {
public:
    LockedBuffer(std::mutex& mutex, std::ostringstream& target)
        : mutex_(mutex),
          target_(target)
    {
    }

protected:
    int sync() override
    {
        const std::lock_guard lock(mutex_);
        target_ << str();
        str({});
        return 0;
    }

private:
    std::mutex& mutex_;
    std::ostringstream& target_;
};

} // namespace

ServerThread::ServerThread(QString databasePath, const ServingLimits& limits, LoginPolicy policy)
    : databasePath_(std::move(databasePath)),
      limits_(limits),
      policy_(std::move(policy))
{
}

ServerThread::~ServerThread()
{
    quit();
    wait();
}

quint16 ServerThread::start()
{
    QThread::start();
    while (port_ == 0 && isRunning()) {
        QThread::msleep(5);
    }
    return port_;
}

std::string ServerThread::log()
{
    const std::lock_guard lock(logMutex_);
    return log_.str();
}

void ServerThread::run()
{
    LockedBuffer buffer(logMutex_, log_);
    std::ostream out(&buffer);
    {
        Database database(databasePath_);
        ServerLog log(out, true);
        MapServer server(database, log, limits_, policy_);
        if (!server.listen(QHostAddress::LocalHost, 0)) {
            return;
        }
        port_ = server.port();
        exec();
    }
}
