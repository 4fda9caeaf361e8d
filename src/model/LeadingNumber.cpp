#include "model/LeadingNumber.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string>
#include <system_error>

namespace orbelan {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Walks the text one significant character at a time, stepping over blanks.
char peek(std::string_view text, std::size_t& at)
{
    while (at < text.size() && isBlank(text[at])) {
        ++at;
    }
    return at < text.size() ? text[at] : '\0';
}

// Appends an optional sign ("-" only; from_chars takes no "+") and digits.
bool readSignedDigits(std::string_view text, std::size_t& at, std::string& out, bool signAllowed)
{
    const char sign = peek(text, at);
    if (signAllowed && (sign == '+' || sign == '-')) {
        out += sign == '-' ? "-" : "";
        ++at;
    }
    bool any = false;
    for (char c = peek(text, at); isDigit(c); c = peek(text, at)) {
        out += c;
        any = true;
        ++at;
    }
    return any;
}

// The leading number without blanks, in the form from_chars reads
// ("-12.5e3"); empty when the text does not start with a number.
std::string leadingNumber(std::string_view text)
{
    std::string number;
    std::size_t at = 0;
    bool digits = readSignedDigits(text, at, number, true);
    if (peek(text, at) == '.') {
        number += '.';
        ++at;
        digits = readSignedDigits(text, at, number, false) || digits;
    }
    if (!digits) {
        return {};
    }
    const char marker = peek(text, at);
    if (marker == 'e' || marker == 'E' || marker == 'd' || marker == 'D') {
        std::string exponent = "e";
        ++at;
        if (readSignedDigits(text, at, exponent, true)) {
            number += exponent;
        }
    }
    return number;
}

// For a number from_chars found out of range: whether it is too large
// rather than too small, from the decimal exponent of its first significant
// digit.
bool overflows(std::string_view number)
{
    const std::size_t e = number.find('e');
    const std::string_view mantissa = number.substr(0, e);
    long exponent = 0;
    if (e != std::string_view::npos) {
        const std::string_view digits = number.substr(e + 1);
        if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc{}) {
            return digits.front() != '-';
        }
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    const long leading = first < point ? long(point - first) - 1 : -long(first - point);
    return leading + exponent > 0;
}

} // namespace

double Val(std::string_view text)
{
    const std::string number = leadingNumber(text);
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        const double magnitude = overflows(number) ? std::numeric_limits<double>::infinity() : 0.0;
        return number.front() == '-' ? -magnitude : magnitude;
    }
    return error == std::errc{} ? value : 0.0;
}

} // namespace orbelan
