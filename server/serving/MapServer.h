#pragma once

#include "serving/Connection.h"
#include "serving/ConnectionAdmission.h"
#include "serving/DeadlineList.h"
#include "serving/EpollSet.h"
#include "serving/ListeningSocket.h"
#include "serving/RequestHandler.h"
#include "serving/ServerLog.h"
#include "serving/ServingLimits.h"
#include "storage/Database.h"

#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace orbelan::server {

// Listens for clients and serves every connection from one epoll set, which
// Qt's event loop watches through a single notifier: a wake-up costs the
// same with ten idle connections or ten thousand. Connections are admitted
// within the caps of the limits, closed when idle or stuck in a request, and
// the replies waiting to be sent stay within a budget. Requests are answered
// a few per connection at a time, so that one client's long burst does not
// hold up the others. What a request changes is announced to every
// connection on its map. Passwords are checked off this thread; a connection
// waiting for one is answered when the check's result comes back through
// the epoll set.
class MapServer : public QObject {
    Q_OBJECT

public:
    MapServer(Database& database, ServerLog& log, const ServingLimits& limits = {},
              const LoginPolicy& policy = LoginPolicy::trustingUserIds(),
              QObject* parent = nullptr);
    ~MapServer() override;

    // False, with errorString() telling why, when the address cannot be bound.
    bool listen(const QHostAddress& address, quint16 port);
    quint16 port() const { return listener_.port(); }
    QString errorString() const { return QString::fromStdString(listener_.errorString()); }
    // Stops accepting, gives the replies being written until the deadline to
    // leave, and closes every connection. Returns how many were open.
    int shutDown(std::chrono::milliseconds deadline);

private:
    // A connection and what the server keeps track of for it.
    struct Client {
        std::unique_ptr<Connection> connection;
        std::string address;
        std::uint32_t events = 0;
        std::size_t countedUnsent = 0;
        bool inBacklog = false;
    };

    void serveReady();
    void acceptConnections();
    void admit(const ListeningSocket::Arrival& arrival);
    void serve(Client& client, std::uint32_t events);
    void takeTurns();
    // Hands the answers of finished password checks to their connections.
    void answerLogins();
    // After work on a connection: closes it when it has finished, else
    // updates what to wait for, its timeouts, the unsent total and the
    // backlog of requests to answer.
    void settle(Client& client);
    void close(std::uint64_t number, const std::string& why);
    void closeExpired();
    // Queues the messages on every connection on the map; the connections
    // are settled once the work at hand is done (settleAnnounced).
    void announce(const HandlerOutcome::Announcement& announcement);
    void settleAnnounced();
    void keepUnsentWithinBudget();
    void pauseAccepting();
    void resumeAccepting();

    RequestHandler handler_;
    ServerLog& log_;
    ServingLimits limits_;
    EpollSet epoll_;
    ListeningSocket listener_;
    std::unique_ptr<QSocketNotifier> notifier_;
    // Once a second: the timeouts, and accepting again after running out of
    // descriptors.
    QTimer clock_;
    // Runs while connections have requests read and not answered.
    QTimer turns_;
    std::unordered_map<std::uint64_t, Client> clients_;
    ConnectionAdmission admission_;
    DeadlineList idle_;
    DeadlineList unfinished_;
    std::deque<std::uint64_t> backlog_;
    // Connections given an announcement since they were last settled.
    std::vector<std::uint64_t> announced_;
    std::size_t unsent_ = 0;
    std::uint64_t connections_ = 0;
    bool acceptingPaused_ = false;
    // A connection has closed since memory was last given back.
    bool closedSinceTrim_ = false;
    // Running out was logged, and no connection has been accepted since.
    bool outOfDescriptors_ = false;
    // When running out was last logged: a server that runs out again and
    // again says so at most once a minute.
    std::optional<DeadlineList::Clock::time_point> loggedOutOfDescriptors_;
};

} // namespace orbelan::server
