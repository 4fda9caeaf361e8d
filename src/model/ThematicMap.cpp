#include "model/ThematicMap.h"

#include <memory>
#include <utility>

namespace orbelan {

Theme& ThematicMap::Add(std::int16_t DrawStyle, std::int16_t DrawWidth, std::int32_t DrawColor,
                        std::int32_t FillColor, std::int16_t FillStyle, std::string ValMin, std::string ValMax)
{
    auto theme = std::make_unique<Theme>();
    theme->max = std::move(ValMax);
    theme->min = std::move(ValMin);
    theme->FillStyle = FillStyle;
    theme->FillColor = FillColor;
    theme->DrawColor = DrawColor;
    theme->DrawWidth = DrawWidth;
    theme->DrawStyle = DrawStyle;
    return InsertNumbered(std::move(theme));
}

} // namespace orbelan
