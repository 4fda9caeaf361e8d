#include "protocol/DWBUffer.h"

#include "protocol/WireReadError.h"
#include "protocol/WireValues.h"

#include <limits>
#include <stdexcept>

namespace orbelan {

using namespace wirevalues;

namespace {

constexpr std::uint8_t kSignature[] = {'M', 'I', 'C', ' '};
constexpr std::size_t kLengthOffset = 4;
constexpr std::size_t kCommandOffset = 8;

// How many bytes exist from the 1-based index position on.
std::size_t bytesFrom(std::size_t size, std::int64_t position)
{
    const auto index = static_cast<std::uint64_t>(position - 1);
    return index < size ? size - index : 0;
}

} // namespace

DWBUffer::DWBUffer(std::span<const std::uint8_t> message)
{
    setBuffer(message);
}

std::vector<std::uint8_t> DWBUffer::buffer() const
{
    return content_;
}

void DWBUffer::setBuffer(std::span<const std::uint8_t> bytes)
{
    content_.assign(bytes.begin(), bytes.end());
    readPosition_ = 1;
}

void DWBUffer::ClearBuffer()
{
    CrearHeader();
}

void DWBUffer::CrearHeader()
{
    content_.assign(std::begin(kSignature), std::end(kSignature));
    content_.resize(kHeaderSize, 0);
    readPosition_ = 1;
}

void DWBUffer::Add2Buffer(std::span<const std::uint8_t> bytes)
{
    append(bytes);
}

void DWBUffer::append(std::span<const std::uint8_t> bytes)
{
    if (content_.empty()) {
        CrearHeader();
    }
    content_.insert(content_.end(), bytes.begin(), bytes.end());
}

std::vector<std::uint8_t> DWBUffer::GetFromBuffer(std::int32_t count, std::int32_t start)
{
    if (count < 0 || start < 0) {
        throw std::invalid_argument("GetFromBuffer needs a count and a start of at least 0");
    }
    const std::int64_t from = start == 0 ? readPosition_ : start;
    if (start == 0) {
        readPosition_ += count;
    }
    if (content_.empty() && count > 0) {
        throwReadError(from, count, "read from an empty message");
    }
    if (count == 0 || from < 1 || static_cast<std::size_t>(count) > bytesFrom(content_.size(), from)) {
        return {};
    }
    const auto first = content_.begin() + (from - 1);
    return {first, first + count};
}

void DWBUffer::Flush()
{
    const std::size_t unread = readPosition_ < 1 ? 0 : bytesFrom(content_.size(), readPosition_);
    content_.erase(content_.begin(), content_.end() - static_cast<std::ptrdiff_t>(unread));
    readPosition_ = 1;
}

void DWBUffer::cerrarMensaje(std::int32_t length)
{
    if (content_.size() < kHeaderSize) {
        throw std::logic_error("cerrarMensaje needs a message with its 8-byte header");
    }
    if (length < 1) {
        if (content_.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
            throw std::length_error("a message longer than 2 GiB cannot be sent");
        }
        length = static_cast<std::int32_t>(content_.size());
    }
    const auto bytes = LongToBytes(length);
    std::copy(bytes.begin(), bytes.end(), content_.begin() + kLengthOffset);
}

void DWBUffer::PutByte(std::uint8_t value)
{
    append(std::span(&value, 1));
}

void DWBUffer::PutInteger(std::int16_t value)
{
    append(IntegerToBytes(value));
}

void DWBUffer::PutLong(std::int32_t value)
{
    append(LongToBytes(value));
}

void DWBUffer::PutSingle(float value)
{
    append(SingleToBytes(value));
}

void DWBUffer::PutDouble(double value)
{
    append(DoubleToBytes(value));
}

void DWBUffer::PutString(std::string_view utf8)
{
    const std::string bytes = StringToBytes(utf8);
    if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
        throw std::length_error("a text of " + std::to_string(bytes.size()) +
                                " characters is longer than a wire string may be (32767)");
    }
    PutInteger(static_cast<std::int16_t>(bytes.size()));
    append({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

std::uint8_t DWBUffer::GetByte()
{
    return read(1)[0];
}

std::int16_t DWBUffer::GetInteger()
{
    return BytesToInteger(read(2), 0);
}

std::int32_t DWBUffer::GetLong()
{
    return BytesToLong(read(4), 0);
}

float DWBUffer::GetSingle()
{
    return BytesToSingle(read(4), 0);
}

double DWBUffer::GetDouble()
{
    return BytesToDouble(read(8), 0);
}

std::string DWBUffer::GetString()
{
    const std::int16_t count = GetInteger();
    if (count < 0) {
        throwReadError(readPosition_, count, "negative string length");
    }
    if (count == 0) {
        return {};
    }
    return BytesToString(read(static_cast<std::size_t>(count)), static_cast<std::size_t>(count));
}

bool DWBUffer::IsHeaderCorrect() const
{
    return content_.size() >= sizeof kSignature &&
           std::equal(std::begin(kSignature), std::end(kSignature), content_.begin());
}

std::int32_t DWBUffer::getLength() const
{
    if (content_.size() < kHeaderSize) {
        throwReadError(kLengthOffset + 1, 4, "message too short for its length field");
    }
    return BytesToLong(content_, kLengthOffset);
}

std::optional<std::int16_t> DWBUffer::commandCode() const
{
    if (content_.size() < kCommandOffset + 2) {
        return std::nullopt;
    }
    return BytesToInteger(content_, kCommandOffset);
}

// The width bytes at the read position, which moves past them whether or not
// they are all there.
std::span<const std::uint8_t> DWBUffer::read(std::size_t width)
{
    const std::int64_t from = readPosition_;
    readPosition_ += static_cast<std::int64_t>(width);
    if (from < 1 || width > bytesFrom(content_.size(), from)) {
        throwReadError(from, static_cast<std::int64_t>(width), "read past the end of the message");
    }
    return std::span(content_).subspan(static_cast<std::size_t>(from - 1), width);
}

void DWBUffer::throwReadError(std::int64_t offset, std::int64_t width, const std::string& what) const
{
    throw WireReadError(offset, width, commandCode(), what);
}

} // namespace orbelan
