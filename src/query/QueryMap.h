#pragma once

#include <cstdint>
#include <vector>

namespace orbelan {

// What the query dialogs ask of the map they belong to, while they are open
// over it.
class QueryMap {
public:
    virtual ~QueryMap() = default;

    // The elements highlighted by an earlier call are drawn plain again.
    virtual void clearHighlight() = 0;
    // Draws one element of a layer highlighted, when it is loaded.
    virtual void highlightElement(std::int32_t layerId, std::int32_t elementId) = 0;
    // Shows the given elements of a layer, as ZoomToSelected does.
    virtual void zoomToElements(std::int32_t layerId, const std::vector<std::int32_t>& elementIds) = 0;
    // Shows the attribute values of one element in their own dialog.
    virtual void showElementInformation(std::int32_t layerId, std::int32_t elementId) = 0;
};

} // namespace orbelan
