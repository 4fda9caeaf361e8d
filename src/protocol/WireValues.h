#pragma once

// Conversions between wire values and byte arrays, built on numcvt. Value to
// bytes gives exactly the value's width; bytes to value reads the value's
// bytes from bytes[start] onwards and throws std::out_of_range when they are
// not all there.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace orbelan::wirevalues {

std::array<std::uint8_t, 2> IntegerToBytes(std::int16_t value);
std::array<std::uint8_t, 4> LongToBytes(std::int32_t value);
std::array<std::uint8_t, 4> SingleToBytes(float value);
std::array<std::uint8_t, 8> DoubleToBytes(double value);
// One Windows-1252 byte per character of the UTF-8 text.
std::string StringToBytes(std::string_view utf8);

std::int16_t BytesToInteger(std::span<const std::uint8_t> bytes, std::size_t start);
std::int32_t BytesToLong(std::span<const std::uint8_t> bytes, std::size_t start);
float BytesToSingle(std::span<const std::uint8_t> bytes, std::size_t start);
double BytesToDouble(std::span<const std::uint8_t> bytes, std::size_t start);
// The UTF-8 text of the first count Windows-1252 bytes.
std::string BytesToString(std::span<const std::uint8_t> bytes, std::size_t count);

} // namespace orbelan::wirevalues
