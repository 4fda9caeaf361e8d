#include "Bytes.h"
#include "protocol/MessageFramer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using orbelan::Arrival;
using orbelan::MessageFramer;

namespace {

Bytes header(std::int32_t length, std::int16_t code)
{
    const auto l = static_cast<std::uint32_t>(length);
    const auto c = static_cast<std::uint16_t>(code);
    const auto byte = [](std::uint32_t value, int shift) { return static_cast<std::uint8_t>(value >> shift); };
    return {'M', 'I', 'C', ' ', byte(l, 0), byte(l, 8), byte(l, 16), byte(l, 24), byte(c, 0), byte(c, 8)};
}

// A well-formed message whose payload bytes count up from its code.
Bytes message(std::int16_t code, std::size_t payloadSize = 0)
{
    Bytes bytes = header(static_cast<std::int32_t>(10 + payloadSize), code);
    for (std::size_t i = 0; i < payloadSize; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(code + i));
    }
    return bytes;
}

std::vector<Bytes> messagesOf(const Arrival& arrival)
{
    std::vector<Bytes> out;
    for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
        out.emplace_back(arrival.messages[i].begin(), arrival.messages[i].end());
    }
    return out;
}

// Feeds the stream cut at the given points and returns every message out.
std::vector<Bytes> feedCut(MessageFramer& framer, const Bytes& stream, std::vector<std::size_t> cuts)
{
    cuts.push_back(stream.size());
    std::vector<Bytes> out;
    std::size_t from = 0;
    for (const std::size_t to : cuts) {
        for (Bytes& m : messagesOf(framer.feed(slice(stream, from, to)))) {
            out.push_back(std::move(m));
        }
        from = to;
    }
    return out;
}

const std::vector<Bytes> kThree = {message(110, 2), message(1, 4), message(101, 35)};
const Bytes kThreeStream = join({kThree[0], kThree[1], kThree[2]});

// Two equal cuts are one cut.
TEST(FramerChunking, AStreamCutAtAnyTwoPointsGivesTheSameMessages)
{
    for (std::size_t first = 0; first <= kThreeStream.size(); ++first) {
        for (std::size_t second = first; second <= kThreeStream.size(); ++second) {
            MessageFramer framer;
            ASSERT_EQ(feedCut(framer, kThreeStream, {first, second}), kThree)
                << "cuts at " << first << " and " << second;
            EXPECT_FALSE(framer.receiving());
            EXPECT_EQ(framer.pendingBytes(), 0u);
        }
    }
}

TEST(FramerArrivals, AMessageFollowedByAPartialHeaderKeepsThePartForLater)
{
    MessageFramer framer;
    const Bytes next = kThree[1];
    const Arrival first = framer.feed(join({kThree[0], slice(next, 0, 5)}));
    EXPECT_EQ(messagesOf(first), std::vector<Bytes>{kThree[0]});
    EXPECT_TRUE(first.receiving);
    EXPECT_EQ(first.expectedLength, -1);
    EXPECT_EQ(framer.pendingBytes(), 5u);

    const Arrival second = framer.feed(slice(next, 5, next.size()));
    EXPECT_EQ(second.chunk, 2u);
    EXPECT_EQ(messagesOf(second), std::vector<Bytes>{next});
    EXPECT_EQ(second.expectedLength, 14);
}

TEST(FramerSignature, AForeignStartDropsFourBytesAndEndsTheArrival)
{
    MessageFramer framer;
    const Arrival foreign = framer.feed(join({Bytes{'M', 'I', 'C', '!'}, kThree[0]}));
    EXPECT_TRUE(foreign.messages.empty());
    EXPECT_EQ(foreign.droppedBytes, 4u);
    EXPECT_EQ(framer.pendingBytes(), kThree[0].size());

    // The rest waits for the next arrival and is checked again there.
    const Arrival next = framer.feed(kThree[1]);
    EXPECT_EQ(messagesOf(next), (std::vector<Bytes>{kThree[0], kThree[1]}));
    EXPECT_EQ(next.droppedBytes, 0u);
}

TEST(FramerSignature, MessagesFollowingOneAnotherAreCutByLengthAlone)
{
    MessageFramer framer;
    Bytes unsigned_ = kThree[1];
    unsigned_[0] = 'X';
    const Arrival arrival = framer.feed(join({kThree[0], unsigned_}));
    EXPECT_EQ(messagesOf(arrival), (std::vector<Bytes>{kThree[0], unsigned_}));
}

TEST(FramerLengths, ImpossibleLengthsAreDroppedUpToTheNextSignature)
{
    for (const std::int32_t length : {0, 9, -1, -2147483647 - 1, 64 * 1024 * 1024 + 1, 2147483647}) {
        SCOPED_TRACE("declared length " + std::to_string(length));
        MessageFramer framer;
        const Bytes bad = join({header(length, 102), Bytes(20, 0xEE)});
        const Arrival arrival = framer.feed(join({bad, kThree[1]}));
        EXPECT_EQ(messagesOf(arrival), std::vector<Bytes>{kThree[1]});
        EXPECT_EQ(arrival.droppedBytes, bad.size());
        EXPECT_FALSE(framer.receiving());
    }
}

TEST(FramerLengths, TheLargestAllowedMessageIsAccepted)
{
    MessageFramer framer(1000);
    const Bytes largest = message(102, 990);
    EXPECT_EQ(messagesOf(framer.feed(largest)), std::vector<Bytes>{largest});
    const Arrival tooLarge = framer.feed(join({message(102, 991), kThree[0]}));
    EXPECT_EQ(messagesOf(tooLarge), std::vector<Bytes>{kThree[0]});
}

TEST(FramerLengths, ABadLengthInsideAStreamResynchronisesAcrossArrivals)
{
    MessageFramer framer;
    const Bytes stream = join({kThree[0], header(3, 0), Bytes(100, 'x'), kThree[1], kThree[2]});
    // Cut inside the signature of the message that comes after the garbage.
    const std::size_t signatureAt = kThree[0].size() + 10 + 100;
    std::vector<Bytes> out = feedCut(framer, stream, {signatureAt + 3});
    EXPECT_EQ(out, (std::vector<Bytes>{kThree[0], kThree[1], kThree[2]}));
}

TEST(FramerLengths, AFloodOfForeignBytesStaysBounded)
{
    MessageFramer framer(64);
    std::size_t dropped = 0;
    for (int i = 0; i < 100; ++i) {
        dropped += framer.feed(Bytes(1000, 'z')).droppedBytes;
        EXPECT_LE(framer.pendingBytes(), 1000u + 64u);
    }
    const Arrival arrival = framer.feed(kThree[1]);
    EXPECT_EQ(messagesOf(arrival), std::vector<Bytes>{kThree[1]});
    EXPECT_EQ(dropped + arrival.droppedBytes, 100u * 1000u);
}

} // namespace
