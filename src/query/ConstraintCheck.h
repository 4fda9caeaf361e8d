#pragma once

#include "query/Constraint.h"

#include <vector>

namespace orbelan {

class layer;

// Whether the constraints may be kept for the layer: each names a field of
// it, and the first value of a numeric field reads back unchanged through
// the field's number type ("15" on a long integer does, "1.50" does not).
// The check ends at the first field whose type code is outside 2..131.
bool constraintsFit(const std::vector<Constraint>& constraints, const layer& target);

} // namespace orbelan
