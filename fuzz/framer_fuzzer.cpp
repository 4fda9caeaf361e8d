// Feeds an arbitrary byte stream, in chunk sizes the input chooses, to the
// message framer and reads every message it cuts out with typed reads.
//
// Input layout: repeated [n][n + 1 stream bytes]; the last chunk may be short.
// Besides the sanitizers, the target checks what must hold for any input:
// every byte fed is handed out, dropped or still pending; every message is
// between the minimum and maximum length and declares its own size; and a
// stream from which nothing was dropped is cut the same whatever its chunking.

#include "protocol/DWBUffer.h"
#include "protocol/MessageFramer.h"
#include "protocol/WireReadError.h"

#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

namespace {

constexpr std::size_t kMaximumLength = 1 << 16;

void check(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

// Reads the payload with a sequence of typed reads chosen by the message's
// own bytes, until it runs out.
void readAll(std::span<const std::uint8_t> bytes)
{
    orbelan::DWBUffer message(bytes);
    check(message.getLength() == static_cast<std::int32_t>(bytes.size()));
    message.GetLong();
    message.GetLong();
    message.GetInteger();
    try {
        for (std::size_t i = 10;; ++i) {
            switch (bytes[i % bytes.size()] % 6) {
            case 0: message.GetByte(); break;
            case 1: message.GetInteger(); break;
            case 2: message.GetLong(); break;
            case 3: message.GetSingle(); break;
            case 4: message.GetDouble(); break;
            default: message.GetString(); break;
            }
            check(message.readPosition() <= message.TamanoBuffer() + 1);
        }
    } catch (const orbelan::WireReadError&) {
    }
}

struct Outcome {
    std::vector<std::vector<std::uint8_t>> messages;
    std::size_t dropped = 0;
};

void collect(const orbelan::Arrival& arrival, Outcome& outcome)
{
    for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
        const auto message = arrival.messages[i];
        check(message.size() >= orbelan::MessageFramer::kMinimumLength);
        check(message.size() <= kMaximumLength);
        outcome.messages.emplace_back(message.begin(), message.end());
        readAll(message);
    }
    outcome.dropped += arrival.droppedBytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    orbelan::MessageFramer chunked(kMaximumLength);
    Outcome outcome;
    std::vector<std::uint8_t> stream;
    std::size_t fed = 0;
    for (std::size_t i = 0; i < size;) {
        const std::size_t length = std::min<std::size_t>(data[i] + 1u, size - i - 1);
        const std::span<const std::uint8_t> piece(data + i + 1, length);
        stream.insert(stream.end(), piece.begin(), piece.end());
        collect(chunked.feed(piece), outcome);
        fed += length;
        i += length + 1;
    }

    std::size_t handedOut = 0;
    for (const auto& message : outcome.messages) {
        handedOut += message.size();
    }
    check(handedOut + outcome.dropped + chunked.pendingBytes() == fed);

    if (outcome.dropped == 0) {
        orbelan::MessageFramer whole(kMaximumLength);
        Outcome once;
        collect(whole.feed(stream), once);
        check(once.messages == outcome.messages);
    }
    return 0;
}
