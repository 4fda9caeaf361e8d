#pragma once

#include "protocol/DWBUffer.h"

#include <optional>

namespace orbelan::load {

// A bounded sequence of requests for a pipelined connection.
class RequestSource {
public:
    virtual ~RequestSource() = default;
    // The next whole message, empty once the sequence is done.
    virtual std::optional<DWBUffer> next() = 0;
};

} // namespace orbelan::load
