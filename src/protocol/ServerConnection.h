#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/MessageFramer.h"
#include "protocol/RequestSender.h"
#include "protocol/Socket.h"

#include <QObject>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace orbelan {

// The Viewer's one connection to the map server: its socket, the requests it
// sends, the messages it cuts out of the byte stream, and the count of
// requests whose replies have not been handled yet.
//
// Every arrival of bytes is fed to the framer and each whole message is handed
// to the message handler, strictly in the order received and never while
// another message is being handled. A handler may send a request, and a send
// may wait for a connection with the event loop running, so bytes can arrive
// while a handler runs: the messages they complete are queued and handed out
// by the outer arrival once the running handler returns.
//
// A send that finds the connection down opens it again. The replies awaited
// on the old connection are lost with it: they are no longer counted, and
// repliesLost says so, as it does when the connection closes. A re-opened
// connection is announced with reconnected before the send's own bytes go,
// so that the session can introduce itself first. When re-opening fails,
// connectionFailed is said once, and the sends that follow it before the
// event loop comes round again are dropped without a further attempt.
class ServerConnection : public QObject, public RequestSender {
    Q_OBJECT

public:
    // Receives each whole message with its read position at byte 1.
    using MessageHandler = std::function<void(DWBUffer& message)>;

    explicit ServerConnection(QObject* parent = nullptr);

    Socket& socket() { return socket_; }
    const Socket& socket() const { return socket_; }

    // Connects to the host and port the socket holds.
    bool connectToServer();
    // Re-opens a connection that is not up with the host and port the socket
    // still holds, counts the request when its reply is counted, builds it
    // (header, code, payload) and hands the bytes to the socket. Nothing is
    // sent or counted after stopSending, nor while the server is unreachable.
    void sendRequest(CommandCode code, const std::function<void(DWBUffer&)>& writePayload = {}) override;
    // Replaces the handler; an empty one brings back the default, which only
    // counts off the replies the catalogue counts.
    void setMessageHandler(MessageHandler handler);

    std::int32_t pendingRequests() const override { return pendingRequests_; }
    // Forgets every awaited reply (the host reloaded the control's properties).
    void resetPendingRequests() { pendingRequests_ = 0; }
    // The first thing every handler of a counted reply does.
    void replyHandled() override;
    void stopSending() override { sendingStopped_ = true; }
    // Requests go out again (a new session begins).
    void resumeSending() { sendingStopped_ = false; }

    // Bytes of a message that is not whole yet are held (a split header too).
    bool receiving() const;
    // Nothing awaited, nothing unread in the socket, nothing half-received and
    // no message being handed out.
    bool idle() const;
    // Closes the socket and waits, with the event loop running, until it reads 0.
    void closeAndWait();

signals:
    // Bytes have arrived (the activity indicator shows).
    void dataArriving();
    // The arrival continued a message already in progress (the indicator
    // changes colour).
    void furtherChunk();
    // A whole message is about to be handled (the busy pointer shows).
    void dispatching();
    // A handler read past its message's end, or met a value it could not
    // take; the rest of the message was abandoned.
    void messageAbandoned(const QString& why);
    // A send opened the connection again; its own bytes follow at once.
    void reconnected();
    // A send could not open the connection again.
    void connectionFailed();
    // The replies awaited were lost with the connection: none is counted now.
    void repliesLost();
    // The arrival left no partial message behind (the indicator hides).
    void receiveIdle();
    // The arrival handled at least one message and no reply is awaited any
    // more: once per arrival, never once per message (the map is redrawn).
    void allRepliesIn();

private:
    void onDataArrival();
    void onStateChanged(int state);
    bool reconnect();
    void forgetAwaitedReplies();
    void holdOrSend(std::vector<std::uint8_t> bytes);
    void collect();
    std::size_t dispatchQueued();
    void dispatch(DWBUffer& message);
    void finishArrival(std::size_t dispatched);
    void countOffReply(const DWBUffer& message);

    Socket socket_;
    MessageFramer framer_;
    std::deque<DWBUffer> queue_;
    // Held by shared pointer so that a handler replacing itself keeps running
    // on a live copy.
    std::shared_ptr<const MessageHandler> handler_;
    std::int32_t pendingRequests_ = 0;
    bool inArrival_ = false;
    bool sendingStopped_ = false;
    bool reconnecting_ = false;
    bool unreachable_ = false;
    // Requests sent from the event loop while a re-connection waits: they
    // follow the session's introduction once the connection is up.
    std::vector<std::vector<std::uint8_t>> held_;
};

} // namespace orbelan
