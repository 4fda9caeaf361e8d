#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orbelan {

// The value below which the fraction of the values lies (0.99: the p99);
// reorders the values.
inline double percentile(std::vector<double>& values, double fraction)
{
    const auto index = static_cast<std::size_t>(fraction * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(index),
                     values.end());
    return values[index];
}

} // namespace orbelan
