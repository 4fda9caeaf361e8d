#pragma once

#include "protocol/MessageBatch.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orbelan {

// What one arrival of bytes produced.
struct Arrival {
    // The whole messages it completed, in order.
    MessageBatch messages;
    // 1 when the arrival started a new message, 2, 3 ... when it added a
    // further chunk to a message already in progress (the activity indicator
    // changes colour on every further chunk).
    std::size_t chunk = 1;
    // A message, or the header of one, is still being collected.
    bool receiving = false;
    // Declared total length of the message being collected or last cut out;
    // -1 while its header has not arrived.
    std::int64_t expectedLength = -1;
    // Bytes thrown away: a start that is not "MIC ", or a message with an
    // impossible length and whatever followed it up to the next "MIC ".
    std::size_t droppedBytes = 0;
};

// Cuts a TCP byte stream, arriving in chunks of any size, back into whole
// messages.
//
// A new message must start with the signature "MIC ": otherwise those four
// bytes are dropped and the arrival ends there, the rest waiting for the next
// arrival. The framer waits for all eight header bytes before it trusts a
// length. Messages that follow one another without a gap are cut by their
// length fields alone; when the last message of an arrival ends exactly at its
// last byte, the next arrival starts a new message and is checked again.
//
// A declared length below 10 (header and command code) or above the maximum
// is never trusted: nothing is allocated for it, the bytes up to the next
// "MIC " are dropped and reception starts again there.
//
// Work is linear in the bytes received: consumed bytes are discarded in bulk,
// never by re-copying the unread rest after every message.
class MessageFramer {
public:
    static constexpr std::size_t kDefaultMaximumLength = 64u * 1024 * 1024;
    static constexpr std::size_t kMinimumLength = 10;

    explicit MessageFramer(std::size_t maximumLength = kDefaultMaximumLength);

    Arrival feed(std::span<const std::uint8_t> chunk);

    bool receiving() const { return state_ == State::Receiving; }
    std::int64_t expectedLength() const { return expectedLength_; }
    // Bytes received and not yet handed out or dropped.
    std::size_t pendingBytes() const { return pending_.size() - head_; }

private:
    enum class State { Idle, Receiving, Resynchronising };

    void store(std::span<const std::uint8_t> chunk);
    bool step(Arrival& arrival);
    bool startMessage(Arrival& arrival);
    bool cutMessage(Arrival& arrival);
    bool resynchronise(Arrival& arrival);
    void drop(std::size_t count, Arrival& arrival);
    std::int64_t lengthAtHead() const;
    bool signatureAt(std::size_t index) const;

    std::size_t maximumLength_;
    State state_ = State::Idle;
    std::int64_t expectedLength_ = -1;
    std::size_t chunk_ = 0;
    std::vector<std::uint8_t> pending_;
    std::size_t head_ = 0; // index of the first unconsumed byte in pending_
};

} // namespace orbelan
