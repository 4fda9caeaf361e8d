#include "protocol/ServerConnection.h"

#include "protocol/ConnectToServer.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <chrono>
#include <exception>
#include <limits>
#include <optional>
#include <utility>

namespace orbelan {

namespace {

// How long closing may wait for the last requests to leave before the
// connection is cut.
constexpr std::chrono::seconds kCloseLimit(10);

using Count = std::numeric_limits<std::int32_t>;

} // namespace

ServerConnection::ServerConnection(QObject* parent)
    : QObject(parent),
      socket_(this)
{
    setMessageHandler({});
    connect(&socket_, &Socket::DataArrival, this, &ServerConnection::onDataArrival);
    connect(&socket_, &Socket::StateChanged, this, &ServerConnection::onStateChanged);
}

bool ServerConnection::connectToServer()
{
    return ConnectToServer(socket_, socket_.RemoteHost(), socket_.RemotePort());
}

void ServerConnection::sendRequest(CommandCode code, const std::function<void(DWBUffer&)>& writePayload)
{
    if (sendingStopped_ || unreachable_) {
        return;
    }
    const int state = socket_.State();
    if (state != kSocketConnected && state != kSocketOpen && !reconnecting_ && !reconnect()) {
        return;
    }
    if (isCounted(code) && pendingRequests_ < Count::max()) {
        ++pendingRequests_;
    }
    const DWBUffer message = composeRequest(code, writePayload);
    holdOrSend({message.bytes().begin(), message.bytes().end()});
}

// The replies of the old connection are forgotten before the new one opens.
// A failed attempt is said once; the next user action may try again.
bool ServerConnection::reconnect()
{
    forgetAwaitedReplies();
    bool connected = false;
    {
        const QScopedValueRollback<bool> attempt(reconnecting_, true);
        connected = connectToServer();
    }
    if (connected) {
        emit reconnected();
        for (std::vector<std::uint8_t>& bytes : std::exchange(held_, {})) {
            socket_.SendData(bytes);
        }
        return true;
    }
    held_.clear();
    unreachable_ = true;
    emit connectionFailed();
    QTimer::singleShot(0, this, [this] {
        unreachable_ = false;
        forgetAwaitedReplies();
    });
    return false;
}

void ServerConnection::holdOrSend(std::vector<std::uint8_t> bytes)
{
    if (reconnecting_) {
        held_.push_back(std::move(bytes));
    } else {
        socket_.SendData(bytes);
    }
}

void ServerConnection::forgetAwaitedReplies()
{
    pendingRequests_ = 0;
    emit repliesLost();
}

void ServerConnection::setMessageHandler(MessageHandler handler)
{
    if (!handler) {
        handler = [this](DWBUffer& message) { countOffReply(message); };
    }
    handler_ = std::make_shared<const MessageHandler>(std::move(handler));
}

void ServerConnection::replyHandled()
{
    if (pendingRequests_ > Count::min()) {
        --pendingRequests_;
    }
}

bool ServerConnection::receiving() const
{
    return framer_.pendingBytes() > 0;
}

bool ServerConnection::idle() const
{
    return pendingRequests_ == 0 && socket_.BytesAvailable() == 0 && !receiving() && queue_.empty() &&
           !inArrival_;
}

void ServerConnection::closeAndWait()
{
    socket_.Close();
    waitForSocketState(
        socket_, [](int state) { return state == kSocketClosed || state == kSocketError; }, kCloseLimit);
    // Cuts a connection still closing after the limit, or clears an error met
    // while closing.
    if (socket_.State() != kSocketClosed) {
        socket_.Close();
    }
}

void ServerConnection::onDataArrival()
{
    if (inArrival_) {
        // A handler of an earlier arrival is running an event loop: queue only,
        // the outer arrival hands these messages out after it.
        collect();
        return;
    }
    std::size_t dispatched = 0;
    {
        const QScopedValueRollback<bool> outermost(inArrival_, true);
        collect();
        dispatched = dispatchQueued();
    }
    finishArrival(dispatched);
}

// A message cut short by a lost connection can never be completed: the new
// connection's bytes start a new message.
void ServerConnection::onStateChanged(int state)
{
    if (state == kSocketConnected) {
        framer_ = MessageFramer();
    } else if ((state == kSocketClosed || state == kSocketError) && !reconnecting_) {
        forgetAwaitedReplies();
    }
}

void ServerConnection::collect()
{
    emit dataArriving();
    const Arrival arrival = framer_.feed(socket_.GetData());
    for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
        queue_.emplace_back(arrival.messages[i]);
    }
    if (arrival.chunk > 1) {
        emit furtherChunk();
    }
}

std::size_t ServerConnection::dispatchQueued()
{
    std::size_t dispatched = 0;
    while (!queue_.empty()) {
        DWBUffer message = std::move(queue_.front());
        queue_.pop_front();
        emit dispatching();
        dispatch(message);
        ++dispatched;
    }
    return dispatched;
}

void ServerConnection::dispatch(DWBUffer& message)
{
    const std::shared_ptr<const MessageHandler> handler = handler_;
    try {
        (*handler)(message);
    } catch (const std::exception& error) {
        // Whatever a handler could not get past ends its message, never the
        // event loop.
        emit messageAbandoned(QString::fromStdString(error.what()));
    }
}

void ServerConnection::finishArrival(std::size_t dispatched)
{
    if (!receiving()) {
        emit receiveIdle();
    }
    if (dispatched > 0 && pendingRequests_ == 0) {
        emit allRepliesIn();
    }
}

// Until the command dispatcher takes over, a counted reply is simply counted off.
void ServerConnection::countOffReply(const DWBUffer& message)
{
    const std::optional<std::int16_t> code = message.commandCode();
    const CommandInfo* info = code ? findCommand(*code) : nullptr;
    if (info != nullptr && info->direction == Direction::ServerToClient && info->counted) {
        replyHandled();
    }
}

} // namespace orbelan
