#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orbelan::server {

// The words the generated Santiago is named with.
class SantiagoNames {
public:
    struct LandUse {
        std::string_view name;
        std::int32_t fillColor; // RGB, red in the low byte
    };

    // Names for the streets running east to west and north to south.
    static std::span<const std::string_view> eastWestStreets();
    static std::span<const std::string_view> northSouthStreets();
    static std::span<const LandUse> landUses();
    // Kinds of places of interest, each with the colour of its mark.
    static std::span<const LandUse> placeKinds();
    static std::span<const std::string_view> placeNames();
};

} // namespace orbelan::server
