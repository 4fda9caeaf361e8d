#include "configuration/LayerRestyle.h"

#include "model/layer.h"
#include "session/CellRequester.h"
#include "session/TextCompare.h"

#include <algorithm>
#include <utility>

namespace orbelan {

void restyleLayer(layer& target, LayerStyle style, CellRequester& cells)
{
    const bool newThemeField = !sameText(target.ThematicField, style.thematicField);
    const bool newLabelField = !sameText(target.lblField, style.labelField);
    target.ThematicField = std::move(style.thematicField);
    target.ThematicType = static_cast<std::int16_t>(style.method);
    target.ThematicFieldType = style.thematicFieldType;
    target.setThematicMap(std::move(style.classes));
    target.lblField = std::move(style.labelField);
    target.lblBold = style.labelBold;
    target.lblColor = style.labelColour;
    target.lblZoomMin = style.labelZoomMin;
    target.lblZoomMax = style.labelZoomMax;
    target.lblAllowDuplicates = style.allowDuplicates;
    target.setUserLabelVisibility(style.labelVisibility);
    // Directions show by height once switched on, unless they were always shown.
    target.setUserDirectionVisibility(
        style.directions ? std::max<std::int16_t>(target.UserDirectionVisibility(), 1) : std::int16_t{0});
    target.CalculateThemes = true;
    if (newLabelField) {
        target.ResetLabels();
    }
    if (newThemeField) {
        target.ResetThemes();
        if (!target.ThematicField.empty()) {
            for (const GridCell& cell : target.RequestedCells().cells()) {
                cells.requestFieldValues(target, cell, target.ThematicField);
            }
        }
    }
}

} // namespace orbelan
