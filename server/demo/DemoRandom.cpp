#include "demo/DemoRandom.h"

namespace orbelan::server {

DemoRandom::DemoRandom(std::uint64_t seed)
    : state_(seed)
{
}

std::uint64_t DemoRandom::next()
{
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

double DemoRandom::uniform(double low, double high)
{
    const double unit = static_cast<double>(next() >> 11) * 0x1.0p-53;
    return low + (high - low) * unit;
}

std::size_t DemoRandom::below(std::size_t count)
{
    return static_cast<std::size_t>(next() % count);
}

} // namespace orbelan::server
