#pragma once

#include <cstddef>
#include <cstdint>

namespace orbelan::server {

// A small random generator (SplitMix64) whose sequence is the same on every
// platform and compiler, so that the demo maps come out identical on every
// build; the standard distributions do not promise that.
class DemoRandom {
public:
    explicit DemoRandom(std::uint64_t seed);

    std::uint64_t next();
    // Uniform in [low, high).
    double uniform(double low, double high);
    // Uniform in [0, count); count must be above 0.
    std::size_t below(std::size_t count);

private:
    std::uint64_t state_;
};

} // namespace orbelan::server
