#include "load/Pipeline.h"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace orbelan::load {

Pipeline::Pipeline(WireConnection connection, std::unique_ptr<RequestSource> source, std::size_t inFlightLimit)
    : connection_(std::move(connection)), source_(std::move(source)), inFlightLimit_(inFlightLimit)
{
}

short Pipeline::wanted() const
{
    return static_cast<short>(POLLIN | (mayWrite() ? POLLOUT : 0));
}

bool Pipeline::finished() const
{
    return closed_ || (dry_ && written_ == outgoing_.size() && inFlight_.empty());
}

void Pipeline::advance(short events)
{
    if ((events & POLLOUT) != 0) {
        write();
    }
    if ((events & (POLLIN | POLLHUP | POLLERR)) != 0) {
        read();
    }
}

bool Pipeline::mayWrite() const
{
    return !closed_ && (written_ < outgoing_.size() || (!dry_ && inFlightBytes_ < inFlightLimit_));
}

// Queues requests up to a batch; a request counts as in flight from the
// moment it is queued.
void Pipeline::refill()
{
    while (!dry_ && inFlightBytes_ < inFlightLimit_ && outgoing_.size() < kBatchBytes) {
        const auto request = source_->next();
        if (!request) {
            dry_ = true;
            return;
        }
        const auto bytes = request->bytes();
        outgoing_.insert(outgoing_.end(), bytes.begin(), bytes.end());
        inFlight_.push_back(bytes.size());
        inFlightBytes_ += bytes.size();
        ++sent_;
    }
}

void Pipeline::write()
{
    while (!closed_) {
        if (written_ == outgoing_.size()) {
            outgoing_.clear();
            written_ = 0;
            refill();
        }
        if (outgoing_.empty()) {
            return;
        }
        const auto sent = connection_.socket().sendSome(std::span(outgoing_).subspan(written_));
        if (!sent) {
            closed_ = true;
            return;
        }
        written_ += *sent;
        if (written_ < outgoing_.size()) {
            return; // the send buffer is full
        }
    }
}

void Pipeline::read()
{
    const std::size_t replies = std::min(connection_.discardArrived(), inFlight_.size());
    for (std::size_t i = 0; i < replies; ++i) {
        inFlightBytes_ -= inFlight_.front();
        inFlight_.pop_front();
    }
    answered_ += replies;
    closed_ = closed_ || !connection_.open();
}

} // namespace orbelan::load
