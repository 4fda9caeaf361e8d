#include "render/RasterPlacement.h"

#include "view/Viewport.h"

#include <algorithm>
#include <cmath>

namespace orbelan {

namespace {

// A pixel edge within 0 and the control's size; what is not a number goes to 0.
int clampedEdge(double edge, int size)
{
    return std::isnan(edge) ? 0 : static_cast<int>(std::clamp(std::round(edge), 0.0, static_cast<double>(size)));
}

} // namespace

std::optional<RasterPlacement> RasterPlacement::place(const WorldWindow& extent, const Viewport& view)
{
    if (!view.viewReady()) {
        return std::nullopt;
    }
    const int left = clampedEdge(view.WorldToScreenX(extent.west), view.pixelWidth());
    const int right = clampedEdge(view.WorldToScreenX(extent.east), view.pixelWidth());
    const int top = clampedEdge(view.WorldToScreenY(extent.north), view.pixelHeight());
    const int bottom = clampedEdge(view.WorldToScreenY(extent.south), view.pixelHeight());
    if (right <= left || bottom <= top) {
        return std::nullopt;
    }
    const auto x = [&view](int px) { return view.ScreenToWorldX(static_cast<float>(px)); };
    const auto y = [&view](int py) { return view.ScreenToWorldY(static_cast<float>(py)); };
    return RasterPlacement{QRect(left, top, right - left, bottom - top), {x(left), y(bottom), x(right), y(top)}};
}

} // namespace orbelan
