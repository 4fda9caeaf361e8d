#pragma once

#include <cstdint>
#include <string_view>

namespace orbelan {

// What a layer needs of the map view it belongs to: whether it shows depends
// on the view's height and scale. The model knows nothing of widgets.
class ParentMap {
public:
    virtual ~ParentMap() = default;

    // The view's height in pixels.
    virtual std::int32_t Height() const = 0;
    // The current scale in screen pixels per map unit.
    virtual float DrawScale() const = 0;
    // The view's number for the named raster image, -1 when it has none.
    virtual std::int32_t ImageNumberOf(std::string_view imageName) const = 0;
};

} // namespace orbelan
