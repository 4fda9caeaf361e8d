#pragma once

#include "configuration/ThemeClasses.h"
#include "model/ThematicMap.h"

#include <cstdint>
#include <string>

namespace orbelan {

// What the layer setup dialog gives a layer: its classification, its labels
// and whether its line directions show. Empty field names stand for none.
struct LayerStyle {
    std::string thematicField;
    ThemeMethod method = ThemeMethod::None;
    std::int16_t thematicFieldType = 0;
    ThematicMap classes;
    std::string labelField;
    bool labelBold = false;
    std::int32_t labelColour = 0;
    float labelZoomMin = 0;
    float labelZoomMax = 0;
    bool allowDuplicates = false;
    // 0 "Off", 1 "Auto" (by height), 2 "On".
    std::int16_t labelVisibility = 1;
    bool directions = false;
};

} // namespace orbelan
