#pragma once

#include "storage/MapReader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace orbelan::server {

// What a connection remembers: its number and peer address; whether it has
// passed the access request, for which user and map, and the user's levels
// on the layers of that map, read once when first needed (levels given while a connection is open apply to
// the next connection). A layer without a level there has level 0, whatever
// its id, so naming unknown layers costs neither a store read nor memory.
struct SessionState {
    // The levels a user may have on a layer.
    static constexpr std::int16_t kViewer = 1;
    static constexpr std::int16_t kEditor = 2;

    bool passed = false;
    std::int32_t user = 0;
    std::int32_t map = 0;
    std::optional<std::unordered_map<std::int32_t, std::int16_t>> levels;
    std::uint64_t connection = 0;
    std::string address;

    // The user's level on the layer; 0 for a layer of another map.
    std::int16_t levelOn(std::int32_t layer, MapReader& reader)
    {
        if (!levels) {
            levels = reader.layerLevels(user, map);
        }
        const auto known = levels->find(layer);
        return known == levels->end() ? std::int16_t{0} : known->second;
    }
};

} // namespace orbelan::server
