#include "configuration/LegendLayout.h"

namespace orbelan {

LegendLayout LegendLayout::forBlocks(int lastBlockBottom)
{
    return forTotal(lastBlockBottom > 0 ? lastBlockBottom + kBottomMargin : 0);
}

LegendLayout LegendLayout::forTotal(int totalHeight)
{
    LegendLayout layout;
    layout.totalHeight = totalHeight;
    layout.formHeight = totalHeight;
    layout.scrolls = totalHeight > kScrollThreshold;
    if (layout.scrolls) {
        layout.formHeight = kScrolledHeight;
        layout.scrollMaximum = totalHeight / 1500;
    }
    layout.scrollStep = (totalHeight / 1000 + 1) * 100;
    return layout;
}

} // namespace orbelan
