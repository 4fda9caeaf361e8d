#pragma once

#include "model/KeyedCollection.h"
#include "model/Theme.h"

#include <cstdint>
#include <string>

namespace orbelan {

// The thematic classes of a layer, keyed like Labels by the decimal text of
// count + 1. Class "1" is the default class, which every entity starts in.
class ThematicMap : public KeyedCollection<Theme, std::int32_t> {
public:
    Theme& Add(std::int16_t DrawStyle, std::int16_t DrawWidth, std::int32_t DrawColor, std::int32_t FillColor,
               std::int16_t FillStyle, std::string ValMin, std::string ValMax);
};

} // namespace orbelan
