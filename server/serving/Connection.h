#pragma once

#include "protocol/MessageBatch.h"
#include "protocol/MessageFramer.h"
#include "serving/RequestHandler.h"
#include "serving/ServerLog.h"
#include "serving/SessionState.h"
#include "serving/SharedReply.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include <sys/uio.h>

namespace orbelan::server {

// One client connection on a non-blocking socket: cuts its byte stream into
// requests, answers them in order and writes the replies back. The server
// says when: it reads when the socket is readable, answers a few requests
// at a time so that every connection gets its turn, and sends when the
// socket takes bytes.
//
// Bytes that are not a message (a wrong signature, a length beyond the
// limit) mean the stream can no longer be trusted: they are logged, nothing
// more is read, and the connection finishes once the whole requests before
// them are answered and sent. A client that sends requests without reading
// the replies is held back: past the unsent limit nothing more is read.
class Connection {
public:
    using Clock = std::chrono::steady_clock;
    // Takes what a request asks to announce to the connections on a map.
    using Announcer = std::function<void(const HandlerOutcome::Announcement&)>;

    // The largest request the server reads; real requests are far smaller.
    static constexpr std::size_t kMaximumRequestLength = 1024 * 1024;
    // Bytes read from the socket at a time.
    static constexpr std::size_t kReadChunk = 64 * 1024;

    // address: the peer's IP address; port: its port.
    Connection(int fd, std::uint64_t number, const std::string& address, std::uint16_t port,
               RequestHandler& handler, ServerLog& log, std::size_t unsentLimit,
               Announcer announcer);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    int descriptor() const { return fd_; }
    std::uint64_t number() const { return number_; }

    // Reads one chunk of what has arrived.
    void receive();
    // Answers up to count of the requests read, while the unsent replies
    // stay within the limit.
    void answer(std::size_t count);
    // Writes as much of the replies as the socket takes.
    void send();
    // Reads nothing more and answers nothing more; what is being sent still
    // leaves.
    void stop();
    // The socket failed or the client went away: nothing more can be done.
    void drop() { broken_ = true; }
    // Whether the connection has been let into the map.
    bool onMap(std::int32_t map) const { return state_.passed && state_.map == map && !broken_; }
    // Queues messages that no request of this connection asked for, after
    // the replies queued so far.
    void deliver(SharedReply messages) { queue(std::move(messages)); }
    // Carries out the outcome of the request it has been waiting for, and
    // goes on answering.
    void resume(HandlerOutcome outcome);

    // What to wait for on the socket (EPOLLIN, EPOLLOUT).
    std::uint32_t events() const;
    // Requests wait to be answered and the client takes its replies.
    bool canAnswer() const
    {
        return hasRequests() && unsent_ <= unsentLimit_ && !broken_ && !awaiting_;
    }
    // Nothing is left to do: the connection may be closed.
    bool finished() const;
    std::size_t unsent() const { return unsent_; }
    // When a byte last came in or went out.
    Clock::time_point lastActivity() const { return lastActivity_; }
    // When the request being read started, while one is incomplete.
    std::optional<Clock::time_point> requestStarted() const { return requestStarted_; }
    // "connection N: ", the start of its log lines.
    std::string prefix() const;

private:
    struct Pending {
        SharedReply bytes;
        std::size_t sent = 0;
    };

    void take(std::span<const std::uint8_t> bytes);
    bool hasRequests() const { return nextRequest_ < requests_.size(); }
    void answerOne(std::span<const std::uint8_t> request);
    void carryOut(HandlerOutcome outcome);
    void queue(SharedReply reply);
    std::size_t gatherUnsent(iovec* parts, std::size_t capacity) const;
    void advance(std::size_t written);

    int fd_;
    std::uint64_t number_;
    RequestHandler& handler_;
    ServerLog& log_;
    std::size_t unsentLimit_;
    Announcer announcer_;
    MessageFramer framer_{kMaximumRequestLength};
    SessionState state_;
    // The whole requests of the last read, back to back, and the first of
    // them not answered yet: a read costs one allocation, not one per request.
    MessageBatch requests_;
    std::size_t nextRequest_ = 0;
    std::deque<Pending> replies_;
    std::size_t unsent_ = 0;
    Clock::time_point lastActivity_;
    std::optional<Clock::time_point> requestStarted_;
    // No more reading: the stream is untrusted, the client has finished
    // sending, or the server is stopping.
    bool readingDone_ = false;
    bool broken_ = false;
    // A request waits for an answer that comes later; nothing more is
    // answered or read until it comes.
    bool awaiting_ = false;
};

} // namespace orbelan::server
