#include "protocol/Windows1252.h"

#include <array>
#include <cstdint>
#include <optional>

namespace orbelan::windows1252 {

namespace {

constexpr char kReplacement = '?';

// Code points of the bytes 0x80..0x9F; the undefined bytes map to themselves.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char32_t codePointOf(std::uint8_t byte)
{
    if (byte >= 0x80 && byte <= 0x9F) {
        return kHighControls[byte - 0x80];
    }
    return byte;
}

std::optional<std::uint8_t> byteOf(char32_t codePoint)
{
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
        return static_cast<std::uint8_t>(codePoint);
    }
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == codePoint) {
            return static_cast<std::uint8_t>(0x80 + i);
        }
    }
    return std::nullopt;
}

void appendUtf8(std::string& out, char32_t codePoint)
{
    if (codePoint < 0x80) {
        out.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (codePoint >> 6)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (codePoint >> 12)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    }
}

struct DecodedCharacter {
    std::optional<char32_t> codePoint; // empty for malformed input
    std::size_t length;                // bytes consumed, at least 1
};

// Decodes one UTF-8 sequence at the start of text, rejecting overlong forms,
// surrogates and values beyond U+10FFFF. A malformed sequence consumes one byte.
DecodedCharacter decodeUtf8(std::string_view text)
{
    const auto lead = static_cast<std::uint8_t>(text[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    std::size_t length = 0;
    char32_t codePoint = 0;
    char32_t minimum = 0;
    if ((lead & 0xE0) == 0xC0) {
        length = 2, codePoint = lead & 0x1F, minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3, codePoint = lead & 0x0F, minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4, codePoint = lead & 0x07, minimum = 0x10000;
    } else {
        return {std::nullopt, 1};
    }
    if (length > text.size()) {
        return {std::nullopt, 1};
    }
    for (std::size_t i = 1; i < length; ++i) {
        const auto continuation = static_cast<std::uint8_t>(text[i]);
        if ((continuation & 0xC0) != 0x80) {
            return {std::nullopt, 1};
        }
        codePoint = (codePoint << 6) | (continuation & 0x3F);
    }
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < minimum || surrogate || codePoint > 0x10FFFF) {
        return {std::nullopt, 1};
    }
    return {codePoint, length};
}

} // namespace

std::string fromUtf8(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const DecodedCharacter decoded = decodeUtf8(utf8);
        const auto byte = decoded.codePoint ? byteOf(*decoded.codePoint) : std::nullopt;
        out.push_back(byte ? static_cast<char>(*byte) : kReplacement);
        utf8.remove_prefix(decoded.length);
    }
    return out;
}

std::string toUtf8(std::string_view windows1252)
{
    std::string out;
    out.reserve(windows1252.size());
    for (const char c : windows1252) {
        appendUtf8(out, codePointOf(static_cast<std::uint8_t>(c)));
    }
    return out;
}

} // namespace orbelan::windows1252
