#pragma once

#include <cstdint>
#include <string>

namespace orbelan {

// One thematic class of a layer. For a numeric theme `min` and `max` are the
// bounds of the class; for a text theme `min` is the value itself. Both are
// kept as text, which is how the server sends them and how they are saved;
// numbers are compared through Val. The default class of a layer has `min`
// "MICanyMIC".
struct Theme {
    std::string max;
    std::string min;
    std::int32_t FillStyle = 0;
    std::int32_t FillColor = 0xC0C000;
    std::int32_t DrawColor = 0xFF0000;
    std::int32_t DrawWidth = 1;
    std::int32_t DrawStyle = 0;
};

} // namespace orbelan
