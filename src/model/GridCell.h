#pragma once

#include <cstdint>

namespace orbelan {

// One cell of a layer's grid: row i counts from latitude -90, column j from
// longitude -180, each in steps of the layer's grid delta.
struct GridCell {
    std::int32_t row = 0;
    std::int32_t column = 0;

    // Both indices in one integer, for hashing.
    std::uint64_t packed() const
    {
        return (std::uint64_t(std::uint32_t(row)) << 32) | std::uint32_t(column);
    }

    friend bool operator==(const GridCell&, const GridCell&) = default;
};

} // namespace orbelan
