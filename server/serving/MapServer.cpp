#include "serving/MapServer.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include <malloc.h>
#include <unistd.h>

namespace orbelan::server {

namespace {

// The listening socket's key in the epoll set; connections are numbered from
// 1; the password checks' descriptor has the last key.
constexpr std::uint64_t kListenerKey = 0;
constexpr std::uint64_t kLoginsKey = std::numeric_limits<std::uint64_t>::max();
// Requests answered for one connection before the others get their turn.
constexpr std::size_t kRequestsPerTurn = 4;
// Connections accepted at one wake-up, so that a flood of them does not hold
// up the clients already served.
constexpr int kAcceptsPerWake = 64;
// How often running out of descriptors is logged at most.
constexpr std::chrono::minutes kOutOfDescriptorsQuiet{1};

std::string seconds(std::chrono::seconds duration)
{
    return std::to_string(duration.count()) + " s";
}

std::string mebibytes(std::size_t bytes)
{
    return std::to_string(bytes / (1024 * 1024)) + " MiB";
}

} // namespace

MapServer::MapServer(Database& database, ServerLog& log, const ServingLimits& limits,
                     const LoginPolicy& policy, QObject* parent)
    : QObject(parent),
      handler_(database, limits.cacheBudget, policy),
      log_(log),
      limits_(limits),
      admission_(limits.connections, limits.connectionsPerAddress)
{
    notifier_ = std::make_unique<QSocketNotifier>(epoll_.descriptor(), QSocketNotifier::Read);
    epoll_.add(handler_.logins().descriptor(), kLoginsKey, EPOLLIN);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &MapServer::serveReady);
    connect(&clock_, &QTimer::timeout, this, &MapServer::closeExpired);
    connect(&turns_, &QTimer::timeout, this, &MapServer::takeTurns);
    clock_.start(std::chrono::seconds(1));
    turns_.setInterval(0);
}

MapServer::~MapServer() = default;

bool MapServer::listen(const QHostAddress& address, quint16 port)
{
    if (!listener_.listen(address, port)) {
        return false;
    }
    epoll_.add(listener_.descriptor(), kListenerKey, EPOLLIN);
    log_.line("listening on " + address.toString().toStdString() + ":" +
              std::to_string(listener_.port()));
    return true;
}

void MapServer::serveReady()
{
    for (const epoll_event& event : epoll_.wait(0)) {
        if (event.data.u64 == kListenerKey) {
            acceptConnections();
        } else if (event.data.u64 == kLoginsKey) {
            answerLogins();
        } else if (const auto found = clients_.find(event.data.u64); found != clients_.end()) {
            serve(found->second, event.events);
        }
    }
    settleAnnounced();
    keepUnsentWithinBudget();
}

void MapServer::acceptConnections()
{
    for (int i = 0; i < kAcceptsPerWake && !acceptingPaused_; ++i) {
        const ListeningSocket::Arrival arrival = listener_.accept();
        switch (arrival.outcome) {
        case ListeningSocket::Outcome::NoneWaiting:
            return;
        case ListeningSocket::Outcome::OutOfDescriptors:
            pauseAccepting();
            return;
        case ListeningSocket::Outcome::Accepted:
            admit(arrival);
            break;
        }
    }
}

void MapServer::admit(const ListeningSocket::Arrival& arrival)
{
    const std::string peer = arrival.address + ":" + std::to_string(arrival.port);
    if (outOfDescriptors_) {
        outOfDescriptors_ = false;
        log_.line("descriptors are free again: accepting connections");
    }
    if (const auto refusal = admission_.admit(arrival.address)) {
        log_.line("refused a connection from " + peer + ": " + *refusal);
        ::close(arrival.fd);
        return;
    }
    const std::uint64_t number = ++connections_;
    Client client{std::make_unique<Connection>(
                      arrival.fd, number, arrival.address, arrival.port, handler_, log_,
                      limits_.unsentPerConnection,
                      [this](const HandlerOutcome::Announcement& news) { announce(news); }),
                  arrival.address, EPOLLIN};
    epoll_.add(arrival.fd, number, EPOLLIN);
    idle_.touch(number, client.connection->lastActivity());
    clients_.emplace(number, std::move(client));
}

void MapServer::serve(Client& client, std::uint32_t events)
{
    Connection& connection = *client.connection;
    if ((events & (EPOLLERR | EPOLLHUP)) != 0) {
        connection.drop();
    } else {
        if ((events & EPOLLIN) != 0) {
            connection.receive();
            connection.answer(kRequestsPerTurn);
        }
        connection.send();
    }
    settle(client);
}

void MapServer::takeTurns()
{
    // What has just arrived goes first: a client that waits for each reply
    // does not queue behind every backlog's turn.
    serveReady();
    for (std::size_t turns = backlog_.size(); turns > 0; --turns) {
        const std::uint64_t number = backlog_.front();
        backlog_.pop_front();
        const auto found = clients_.find(number);
        if (found == clients_.end()) {
            continue;
        }
        Client& client = found->second;
        client.inBacklog = false;
        client.connection->answer(kRequestsPerTurn);
        client.connection->send();
        settle(client);
    }
    if (backlog_.empty()) {
        turns_.stop();
    }
    settleAnnounced();
    keepUnsentWithinBudget();
}

// A connection closed while its password was checked gets nothing; what the
// check found still counts (a failure, or a login from the address).
void MapServer::answerLogins()
{
    for (LoginService::Answered& answered : handler_.logins().collect()) {
        const auto found = clients_.find(answered.connection);
        if (found == clients_.end()) {
            log_.line("connection " + std::to_string(answered.connection) +
                      ": closed before its answer: " + answered.outcome.note);
            continue;
        }
        found->second.connection->resume(std::move(answered.outcome));
        found->second.connection->send();
        settle(found->second);
    }
}

void MapServer::settle(Client& client)
{
    Connection& connection = *client.connection;
    const std::uint64_t number = connection.number();
    if (connection.finished()) {
        close(number, {});
        return;
    }
    unsent_ = unsent_ - client.countedUnsent + connection.unsent();
    client.countedUnsent = connection.unsent();
    if (const std::uint32_t events = connection.events(); events != client.events) {
        epoll_.change(connection.descriptor(), number, events);
        client.events = events;
    }
    idle_.touch(number, connection.lastActivity());
    if (const auto started = connection.requestStarted()) {
        unfinished_.add(number, *started);
    } else {
        unfinished_.remove(number);
    }
    if (connection.canAnswer() && !client.inBacklog) {
        client.inBacklog = true;
        backlog_.push_back(number);
        turns_.start();
    }
}

void MapServer::close(std::uint64_t number, const std::string& why)
{
    const auto found = clients_.find(number);
    if (found == clients_.end()) {
        return;
    }
    Client& client = found->second;
    const std::string prefix = client.connection->prefix();
    if (!why.empty()) {
        log_.line(prefix + why + "; closing");
    }
    log_.line(prefix + "closed");
    epoll_.remove(client.connection->descriptor());
    unsent_ -= client.countedUnsent;
    admission_.release(client.address);
    idle_.remove(number);
    unfinished_.remove(number);
    clients_.erase(found);
    closedSinceTrim_ = true;
    resumeAccepting();
}

void MapServer::closeExpired()
{
    const auto now = DeadlineList::Clock::now();
    for (const std::uint64_t number : idle_.before(now - limits_.idleTimeout)) {
        close(number, "nothing sent or taken for " + seconds(limits_.idleTimeout));
    }
    for (const std::uint64_t number : unfinished_.before(now - limits_.requestTimeout)) {
        close(number, "a request unfinished after " + seconds(limits_.requestTimeout));
    }
    resumeAccepting();
    // The buffers of closed connections go back to the system: without this
    // the allocator keeps the pages that a crowd of clients took, scattered
    // among live ones, for good.
    if (closedSinceTrim_) {
        closedSinceTrim_ = false;
        malloc_trim(0);
    }
}

// Called while a connection answers, so nothing is settled or closed here.
void MapServer::announce(const HandlerOutcome::Announcement& announcement)
{
    for (auto& [number, client] : clients_) {
        if (client.connection->onMap(announcement.map)) {
            client.connection->deliver(announcement.messages);
            announced_.push_back(number);
        }
    }
}

void MapServer::settleAnnounced()
{
    const std::vector<std::uint64_t> numbers = std::move(announced_);
    announced_.clear();
    for (const std::uint64_t number : numbers) {
        if (const auto found = clients_.find(number); found != clients_.end()) {
            found->second.connection->send();
            settle(found->second);
        }
    }
}

// Closes the connections with the most replies waiting first, until the
// total is back within the budget.
void MapServer::keepUnsentWithinBudget()
{
    if (unsent_ <= limits_.unsentBudget) {
        return;
    }
    std::vector<std::pair<std::size_t, std::uint64_t>> backlogs;
    for (const auto& [number, client] : clients_) {
        backlogs.emplace_back(client.countedUnsent, number);
    }
    std::sort(backlogs.begin(), backlogs.end(), std::greater<>());
    for (const auto& [bytes, number] : backlogs) {
        if (unsent_ <= limits_.unsentBudget) {
            break;
        }
        close(number, std::to_string(bytes) + " bytes of replies unsent while the server's " +
                          mebibytes(limits_.unsentBudget) + " for them are full");
    }
}

// The listening socket leaves the epoll set: it would otherwise wake the
// server again and again for a connection it cannot take.
void MapServer::pauseAccepting()
{
    if (!acceptingPaused_) {
        epoll_.remove(listener_.descriptor());
        acceptingPaused_ = true;
    }
    const auto now = DeadlineList::Clock::now();
    if (!outOfDescriptors_ &&
        (!loggedOutOfDescriptors_ || now - *loggedOutOfDescriptors_ >= kOutOfDescriptorsQuiet)) {
        outOfDescriptors_ = true;
        loggedOutOfDescriptors_ = now;
        log_.line("out of file descriptors with " + std::to_string(admission_.open()) +
                  " connections open: not accepting until one is free");
    }
}

void MapServer::resumeAccepting()
{
    if (acceptingPaused_ && listener_.isListening()) {
        epoll_.add(listener_.descriptor(), kListenerKey, EPOLLIN);
        acceptingPaused_ = false;
    }
}

int MapServer::shutDown(std::chrono::milliseconds deadline)
{
    const int open = static_cast<int>(clients_.size());
    if (listener_.isListening() && !acceptingPaused_) {
        epoll_.remove(listener_.descriptor());
    }
    listener_.close();
    turns_.stop();
    clock_.stop();
    std::vector<std::uint64_t> numbers;
    for (auto& [number, client] : clients_) {
        client.connection->stop();
        numbers.push_back(number);
    }
    for (const std::uint64_t number : numbers) {
        settle(clients_.at(number));
    }
    const QDeadlineTimer timer(deadline);
    while (!clients_.empty() && !timer.hasExpired()) {
        for (const epoll_event& event : epoll_.wait(static_cast<int>(timer.remainingTime()))) {
            if (event.data.u64 == kLoginsKey) {
                answerLogins();
            } else if (const auto found = clients_.find(event.data.u64); found != clients_.end()) {
                serve(found->second, event.events);
            }
        }
    }
    while (!clients_.empty()) {
        close(clients_.begin()->first, {});
    }
    return open;
}

} // namespace orbelan::server
