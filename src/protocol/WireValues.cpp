#include "protocol/WireValues.h"

#include "protocol/Windows1252.h"
#include "protocol/numcvt.h"

#include <stdexcept>

namespace orbelan::wirevalues {

namespace {

// The width bytes at bytes[start], or an error when they are not all present.
const std::uint8_t* valueBytes(std::span<const std::uint8_t> bytes, std::size_t start,
                               std::size_t width)
{
    if (start > bytes.size() || width > bytes.size() - start) {
        throw std::out_of_range("a " + std::to_string(width) + "-byte value at index " +
                                std::to_string(start) + " runs past the end of " +
                                std::to_string(bytes.size()) + " byte(s)");
    }
    return bytes.data() + start;
}

} // namespace

std::array<std::uint8_t, 2> IntegerToBytes(std::int16_t value)
{
    std::array<std::uint8_t, 2> b{};
    numcvt::short2bytes(value, b[0], b[1]);
    return b;
}

std::array<std::uint8_t, 4> LongToBytes(std::int32_t value)
{
    std::array<std::uint8_t, 4> b{};
    numcvt::int2bytes(value, b[0], b[1], b[2], b[3]);
    return b;
}

std::array<std::uint8_t, 4> SingleToBytes(float value)
{
    std::array<std::uint8_t, 4> b{};
    numcvt::float2bytes(value, b[0], b[1], b[2], b[3]);
    return b;
}

std::array<std::uint8_t, 8> DoubleToBytes(double value)
{
    std::array<std::uint8_t, 8> b{};
    numcvt::double2bytes(value, b[0], b[1], b[2], b[3], b[4], b[5], b[6], b[7]);
    return b;
}

std::string StringToBytes(std::string_view utf8)
{
    return windows1252::fromUtf8(utf8);
}

std::int16_t BytesToInteger(std::span<const std::uint8_t> bytes, std::size_t start)
{
    const std::uint8_t* b = valueBytes(bytes, start, 2);
    return numcvt::bytes2short(b[0], b[1]);
}

std::int32_t BytesToLong(std::span<const std::uint8_t> bytes, std::size_t start)
{
    const std::uint8_t* b = valueBytes(bytes, start, 4);
    return numcvt::bytes2long(b[0], b[1], b[2], b[3]);
}

float BytesToSingle(std::span<const std::uint8_t> bytes, std::size_t start)
{
    const std::uint8_t* b = valueBytes(bytes, start, 4);
    return numcvt::bytes2float(b[0], b[1], b[2], b[3]);
}

double BytesToDouble(std::span<const std::uint8_t> bytes, std::size_t start)
{
    const std::uint8_t* b = valueBytes(bytes, start, 8);
    return numcvt::bytes2double(b[0], b[1], b[2], b[3], b[4], b[5], b[6], b[7]);
}

std::string BytesToString(std::span<const std::uint8_t> bytes, std::size_t count)
{
    const std::uint8_t* b = valueBytes(bytes, 0, count);
    return windows1252::toUtf8({reinterpret_cast<const char*>(b), count});
}

} // namespace orbelan::wirevalues
