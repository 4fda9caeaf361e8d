#include "serving/Connection.h"

#include <array>
#include <cerrno>

#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orbelan::server {

namespace {

// Replies handed to the socket in one call.
constexpr std::size_t kPartsPerWrite = 64;

} // namespace

Connection::Connection(int fd, std::uint64_t number, const std::string& address,
                       std::uint16_t port, RequestHandler& handler, ServerLog& log,
                       std::size_t unsentLimit, Announcer announcer)
    : fd_(fd),
      number_(number),
      handler_(handler),
      log_(log),
      unsentLimit_(unsentLimit),
      announcer_(std::move(announcer)),
      lastActivity_(Clock::now())
{
    state_.connection = number;
    state_.address = address;
    log_.line(prefix() + "opened from " + address + ":" + std::to_string(port));
}

Connection::~Connection()
{
    ::close(fd_);
}

void Connection::receive()
{
    if (hasRequests()) {
        return;
    }
    std::array<std::uint8_t, kReadChunk> chunk;
    const ssize_t count = ::recv(fd_, chunk.data(), chunk.size(), 0);
    if (count > 0) {
        lastActivity_ = Clock::now();
        take({chunk.data(), static_cast<std::size_t>(count)});
    } else if (count == 0) {
        readingDone_ = true;
    } else if (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR) {
        broken_ = true;
    }
}

void Connection::take(std::span<const std::uint8_t> bytes)
{
    Arrival arrival = framer_.feed(bytes);
    requests_ = std::move(arrival.messages);
    nextRequest_ = 0;
    if (arrival.droppedBytes > 0) {
        readingDone_ = true;
        log_.line(prefix() + "dropped " + std::to_string(arrival.droppedBytes) +
                  " bytes that are not a request (bad signature or length); closing");
    }
    if (framer_.pendingBytes() == 0) {
        requestStarted_.reset();
    } else if (!requestStarted_) {
        requestStarted_ = lastActivity_;
    }
}

void Connection::answer(std::size_t count)
{
    for (; count > 0 && hasRequests() && unsent_ <= unsentLimit_ && !awaiting_; --count) {
        answerOne(requests_[nextRequest_++]);
    }
}

void Connection::answerOne(std::span<const std::uint8_t> request)
{
    DWBUffer message(request);
    // The framer trusts the length of a message that follows another in the
    // same read; the server also wants its signature.
    if (!message.IsHeaderCorrect()) {
        log_.line(prefix() + "a request without its signature; closing");
        stop();
        return;
    }
    carryOut(handler_.handle(state_, message));
}

void Connection::resume(HandlerOutcome outcome)
{
    awaiting_ = false;
    carryOut(std::move(outcome));
}

void Connection::carryOut(HandlerOutcome outcome)
{
    if (outcome.notable) {
        log_.line(prefix() + outcome.note);
    } else {
        log_.detail(prefix() + outcome.note);
    }
    switch (outcome.action) {
    case HandlerOutcome::Action::Reply:
        queue(std::move(outcome.reply));
        break;
    case HandlerOutcome::Action::Drop:
        break;
    case HandlerOutcome::Action::Close:
        stop();
        break;
    case HandlerOutcome::Action::Await:
        awaiting_ = true;
        break;
    }
    if (outcome.announcement) {
        announcer_(*outcome.announcement);
    }
}

void Connection::queue(SharedReply reply)
{
    if (reply->empty()) {
        return;
    }
    unsent_ += reply->size();
    replies_.push_back({std::move(reply), 0});
}

void Connection::send()
{
    while (!replies_.empty() && !broken_) {
        std::array<iovec, kPartsPerWrite> parts;
        const std::size_t used = gatherUnsent(parts.data(), parts.size());
        msghdr message{};
        message.msg_iov = parts.data();
        message.msg_iovlen = used;
        const ssize_t written = ::sendmsg(fd_, &message, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (written < 0) {
            broken_ = errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR;
            return;
        }
        lastActivity_ = Clock::now();
        advance(static_cast<std::size_t>(written));
    }
}

std::size_t Connection::gatherUnsent(iovec* parts, std::size_t capacity) const
{
    std::size_t used = 0;
    for (auto pending = replies_.begin(); pending != replies_.end() && used < capacity;
         ++pending, ++used) {
        // The socket calls take the bytes as writable, but only read them.
        parts[used].iov_base = const_cast<std::uint8_t*>(pending->bytes->data() + pending->sent);
        parts[used].iov_len = pending->bytes->size() - pending->sent;
    }
    return used;
}

void Connection::advance(std::size_t written)
{
    unsent_ -= written;
    while (written > 0) {
        Pending& front = replies_.front();
        const std::size_t left = front.bytes->size() - front.sent;
        if (written < left) {
            front.sent += written;
            return;
        }
        written -= left;
        replies_.pop_front();
    }
}

void Connection::stop()
{
    readingDone_ = true;
    requests_ = {};
    nextRequest_ = 0;
}

std::uint32_t Connection::events() const
{
    if (broken_) {
        return 0;
    }
    std::uint32_t events = 0;
    if (!readingDone_ && !hasRequests() && unsent_ <= unsentLimit_ && !awaiting_) {
        events |= EPOLLIN;
    }
    if (!replies_.empty()) {
        events |= EPOLLOUT;
    }
    return events;
}

bool Connection::finished() const
{
    return broken_ || (readingDone_ && !hasRequests() && replies_.empty() && !awaiting_);
}

std::string Connection::prefix() const
{
    return "connection " + std::to_string(number_) + ": ";
}

} // namespace orbelan::server
