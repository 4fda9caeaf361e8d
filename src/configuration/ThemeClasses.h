#pragma once

#include "model/ThematicMap.h"
#include "model/TipoLayer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan {

// How a layer's elements are put into classes: by none of their fields, one
// class per value, or one per range of values. The numbers are the
// positions in the method list of the layer setup dialog and the layer's
// ThematicType.
enum class ThemeMethod : std::int16_t { None = 0, ValueList = 1, Ranges = 2 };

// The default class's lower value, which marks it.
inline constexpr const char* kDefaultClassMarker = "MICanyMIC";

// What a classification is built from: the method, the values the server
// gave for it (the distinct values, or the minimum and the maximum), the
// number of ranges, the style every class starts with, the two ends of the
// colour ramp (OLE colours) and the kind of layer, which decides whether
// the ramp colours the border or the fill.
struct Classification {
    ThemeMethod method = ThemeMethod::None;
    std::vector<std::string> statistics;
    int ranges = 0;
    Theme style;
    std::int32_t firstColour = 0;
    std::int32_t lastColour = 0;
    TipoLayer kind{};
};

// Adds a class at the end with the style's five style values.
Theme& addClass(ThematicMap& themes, const Theme& style, std::string min, std::string max);

// Gives a class the five style values of another, its bounds kept.
void copyStyle(Theme& to, const Theme& from);

// Rebuilds the classes: the default class as it is (a new one when there
// is none), then one class per value or per range, coloured along the ramp.
void buildClasses(ThematicMap& themes, const Classification& classification);

// Gives every class after the default the style, then a colour of the ramp
// from firstColour (the first of them) to lastColour (the last): each
// component moves in equal steps, rounded to the nearest whole number with
// halves to even. Points and lines take it as their line colour, polygons
// as their fill; other kinds keep the style's colours.
void colourAlongRamp(ThematicMap& themes, const Classification& classification);

// The lower and upper bounds of `count` equal ranges from the first to the
// last statistics value; none when there are no values or count is not
// positive.
std::vector<std::pair<double, double>> equalRanges(const std::vector<std::string>& statistics, int count);

} // namespace orbelan
