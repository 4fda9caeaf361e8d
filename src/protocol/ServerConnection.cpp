#include "protocol/ServerConnection.h"

#include "protocol/ConnectToServer.h"
#include "protocol/WireReadError.h"

#include <QScopedValueRollback>

#include <chrono>
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
    if (isCounted(code) && pendingRequests_ < Count::max()) {
        ++pendingRequests_;
    }
    const DWBUffer message = composeRequest(code, writePayload);
    const int state = socket_.State();
    if (state != kSocketConnected && state != kSocketOpen) {
        connectToServer();
    }
    socket_.SendData(message.bytes());
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
    } catch (const WireReadError& error) {
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
