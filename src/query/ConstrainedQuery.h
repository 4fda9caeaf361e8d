#pragma once

#include "protocol/messages/ConstrainedElementQuery.h"
#include "query/Constraint.h"

#include <cstdint>
#include <vector>

namespace orbelan {

class layer;

// The query of the candidate elements of the target layer (none: the whole
// layer) that meet every constraint, each constraint with the type code of
// its field as the layer defines it (0 for a field it lacks) and its
// operator in one byte.
messages::ConstrainedElementQuery constrainedQuery(const layer& target, std::vector<std::int32_t> candidates,
                                                   const std::vector<Constraint>& constraints);

} // namespace orbelan
