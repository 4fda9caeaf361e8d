#pragma once

#include <cstddef>
#include <string>

namespace orbelan::load {

// What the well-behaved client measured in one run.
struct ClientFigures {
    std::size_t requests = 0;
    double requestsPerSecond = 0.0;
    double p99Milliseconds = 0.0;
    // Why the run stopped before its time, empty when it did not.
    std::string failure;
};

} // namespace orbelan::load
