#include "protocol/MessageFramer.h"

#include "protocol/numcvt.h"

#include <algorithm>
#include <array>

namespace orbelan {

namespace {

constexpr std::array<std::uint8_t, 4> kSignature = {'M', 'I', 'C', ' '};
constexpr std::size_t kHeaderSize = 8;
// Above this capacity an emptied buffer gives its memory back.
constexpr std::size_t kRetainedCapacity = 1u << 20;

} // namespace

MessageFramer::MessageFramer(std::size_t maximumLength)
    : maximumLength_(std::max(maximumLength, kMinimumLength))
{
}

Arrival MessageFramer::feed(std::span<const std::uint8_t> chunk)
{
    store(chunk);
    chunk_ = state_ == State::Receiving ? chunk_ + 1 : 1;

    Arrival arrival;
    arrival.chunk = chunk_;
    while (step(arrival)) {
    }
    arrival.receiving = receiving();
    arrival.expectedLength = expectedLength_;
    return arrival;
}

// Appends the chunk after discarding the consumed front, but only once the
// consumed part is at least as long as what is left, so every byte is moved
// at most once.
void MessageFramer::store(std::span<const std::uint8_t> chunk)
{
    if (head_ == pending_.size()) {
        pending_.clear();
        head_ = 0;
        if (pending_.capacity() > kRetainedCapacity) {
            pending_.shrink_to_fit();
        }
    } else if (head_ >= pending_.size() - head_) {
        pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(head_));
        head_ = 0;
    }
    pending_.insert(pending_.end(), chunk.begin(), chunk.end());
}

// Advances the state machine by one step; false when the arrival is done.
bool MessageFramer::step(Arrival& arrival)
{
    switch (state_) {
    case State::Idle:
        return startMessage(arrival);
    case State::Receiving:
        return cutMessage(arrival);
    case State::Resynchronising:
        return resynchronise(arrival);
    }
    return false;
}

bool MessageFramer::startMessage(Arrival& arrival)
{
    if (pendingBytes() < kSignature.size()) {
        return false;
    }
    if (!signatureAt(head_)) {
        // A sender that floods us with foreign bytes would otherwise grow the
        // backlog without end at four dropped bytes per arrival.
        if (pendingBytes() > maximumLength_) {
            state_ = State::Resynchronising;
            return true;
        }
        drop(kSignature.size(), arrival);
        return false;
    }
    if (pendingBytes() < kHeaderSize) {
        return false;
    }
    state_ = State::Receiving;
    return true;
}

bool MessageFramer::cutMessage(Arrival& arrival)
{
    const std::size_t available = pendingBytes();
    if (available == 0) {
        state_ = State::Idle;
        return false;
    }
    if (available < kHeaderSize) {
        expectedLength_ = -1;
        return false;
    }
    const std::int64_t length = lengthAtHead();
    if (length < static_cast<std::int64_t>(kMinimumLength) ||
        length > static_cast<std::int64_t>(maximumLength_)) {
        expectedLength_ = -1;
        drop(kSignature.size(), arrival);
        state_ = State::Resynchronising;
        return true;
    }
    expectedLength_ = length;
    const auto size = static_cast<std::size_t>(length);
    if (available < size) {
        return false;
    }
    arrival.messages.append(std::span(pending_).subspan(head_, size));
    head_ += size;
    return true;
}

// Drops everything up to the next "MIC ", keeping a tail that could be the
// start of one split across arrivals.
bool MessageFramer::resynchronise(Arrival& arrival)
{
    const auto begin = pending_.begin() + static_cast<std::ptrdiff_t>(head_);
    const auto found = std::search(begin, pending_.end(), kSignature.begin(), kSignature.end());
    if (found != pending_.end()) {
        drop(static_cast<std::size_t>(found - begin), arrival);
        state_ = State::Idle;
        return true;
    }
    const std::size_t keep = std::min(pendingBytes(), kSignature.size() - 1);
    drop(pendingBytes() - keep, arrival);
    return false;
}

void MessageFramer::drop(std::size_t count, Arrival& arrival)
{
    head_ += count;
    arrival.droppedBytes += count;
}

std::int64_t MessageFramer::lengthAtHead() const
{
    const std::uint8_t* b = pending_.data() + head_ + kSignature.size();
    return numcvt::bytes2long(b[0], b[1], b[2], b[3]);
}

bool MessageFramer::signatureAt(std::size_t index) const
{
    return std::equal(kSignature.begin(), kSignature.end(), pending_.begin() + static_cast<std::ptrdiff_t>(index));
}

} // namespace orbelan
