#pragma once

#include <string_view>

namespace orbelan {

// The number at the start of a text, the way thematic values are compared:
// blanks, tabs and line feeds are ignored wherever they are ("1 000" is 1000),
// then an optional sign, digits with an optional "." and an optional exponent
// ("E" or "D") are read up to the first character that does not fit. Text that
// does not start with a number is 0. The point is the only decimal separator,
// whatever the locale. A number too large for a Double is infinite (with its
// sign), one too small is 0.
double Val(std::string_view text);

} // namespace orbelan
