#pragma once

#include <cstdint>
#include <string_view>

namespace orbelan {

// What a layer needs of the Viewer that owns it. The model knows nothing of
// widgets; the Viewer implements this and hands itself to every layer.
class ParentMap {
public:
    virtual ~ParentMap() = default;

    // The Viewer's height in pixels.
    virtual std::int32_t Height() const = 0;
    // The current scale in screen pixels per map unit.
    virtual float DrawScale() const = 0;
    // The Viewer's number for the named raster image, -1 when it has none.
    virtual std::int32_t ImageNumberOf(std::string_view imageName) const = 0;
    // Sends one counted request for the geometry of a grid cell of a layer,
    // with the field whose values drive the layer's thematic classes.
    virtual void RequestCell(std::int32_t layerID, std::int32_t row, std::int32_t column,
                             std::string_view thematicField) = 0;
};

} // namespace orbelan
