// Speed of the wire codec: cutting messages out of a chunked stream, and
// building and reading a large message field by field.

#include "protocol/DWBUffer.h"
#include "protocol/MessageFramer.h"

#include <benchmark/benchmark.h>

#include <random>
#include <span>
#include <vector>

using orbelan::DWBUffer;
using orbelan::MessageFramer;

namespace {

constexpr std::size_t kTcpSegment = 1460;

struct ChunkedStream {
    std::vector<std::uint8_t> bytes;
    std::vector<std::span<const std::uint8_t>> chunks;
};

// count messages of the given size (header, command 102, payload), cut into
// chunks of chunkSize bytes, or of 1..maximumChunk random bytes when chunkSize is 0.
ChunkedStream makeStream(std::size_t count, std::size_t messageSize, std::size_t chunkSize)
{
    DWBUffer message;
    message.CrearHeader();
    message.PutInteger(102);
    message.Add2Buffer(std::vector<std::uint8_t>(messageSize - 10, 0x5A));
    message.cerrarMensaje(0);

    ChunkedStream stream;
    stream.bytes.reserve(count * messageSize);
    for (std::size_t i = 0; i < count; ++i) {
        stream.bytes.insert(stream.bytes.end(), message.bytes().begin(), message.bytes().end());
    }
    std::mt19937 random(42);
    std::uniform_int_distribution<std::size_t> randomSize(1, kTcpSegment);
    for (std::size_t at = 0; at < stream.bytes.size();) {
        const std::size_t size = std::min(chunkSize ? chunkSize : randomSize(random), stream.bytes.size() - at);
        stream.chunks.emplace_back(stream.bytes.data() + at, size);
        at += size;
    }
    return stream;
}

void frameAll(benchmark::State& state, const ChunkedStream& stream, std::size_t expected)
{
    for (auto _ : state) {
        MessageFramer framer;
        std::size_t messages = 0;
        for (const auto chunk : stream.chunks) {
            messages += framer.feed(chunk).messages.size();
        }
        if (messages != expected) {
            state.SkipWithError("the framer lost messages");
        }
        benchmark::DoNotOptimize(messages);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * expected));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * stream.bytes.size()));
}

void BM_FramingSmallMessagesInRandomChunks(benchmark::State& state)
{
    constexpr std::size_t kMessages = 1'000'000;
    static const ChunkedStream stream = makeStream(kMessages, 14, 0);
    frameAll(state, stream, kMessages);
}
BENCHMARK(BM_FramingSmallMessagesInRandomChunks)->Unit(benchmark::kMillisecond);

void BM_Framing64KiBMessagesInSegments(benchmark::State& state)
{
    constexpr std::size_t kMessages = 256;
    static const ChunkedStream stream = makeStream(kMessages, 64 * 1024, kTcpSegment);
    frameAll(state, stream, kMessages);
}
BENCHMARK(BM_Framing64KiBMessagesInSegments)->Unit(benchmark::kMillisecond);

constexpr std::int64_t kOneMiB = 1 << 20;

// Puts a repeating run of typed fields (31 bytes) until the message holds 1 MiB.
DWBUffer buildMiB()
{
    DWBUffer message;
    message.CrearHeader();
    message.PutInteger(102);
    for (std::int32_t i = 0; message.TamanoBuffer() < kOneMiB; ++i) {
        message.PutLong(i);
        message.PutDouble(-69.0 + i * 1e-6);
        message.PutDouble(-33.0 - i * 1e-6);
        message.PutSingle(static_cast<float>(i));
        message.PutInteger(static_cast<std::int16_t>(i));
        message.PutByte(static_cast<std::uint8_t>(i));
        message.PutInteger(static_cast<std::int16_t>(-i));
    }
    message.cerrarMensaje(0);
    return message;
}

void BM_BuildOneMiBMessage(benchmark::State& state)
{
    for (auto _ : state) {
        DWBUffer message = buildMiB();
        benchmark::DoNotOptimize(message.bytes().data());
    }
    state.SetBytesProcessed(state.iterations() * kOneMiB);
}
BENCHMARK(BM_BuildOneMiBMessage)->Unit(benchmark::kMicrosecond);

void BM_ReadOneMiBMessage(benchmark::State& state)
{
    const DWBUffer built = buildMiB();
    for (auto _ : state) {
        DWBUffer message(built.bytes());
        message.GetLong();
        message.GetLong();
        message.GetInteger();
        double sum = 0;
        while (message.readPosition() <= message.TamanoBuffer()) {
            sum += message.GetLong();
            sum += message.GetDouble();
            sum += message.GetDouble();
            sum += message.GetSingle();
            sum += message.GetInteger();
            sum += message.GetByte();
            sum += message.GetInteger();
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(state.iterations() * kOneMiB);
}
BENCHMARK(BM_ReadOneMiBMessage)->Unit(benchmark::kMicrosecond);

} // namespace
