#pragma once

#include <cstdint>
#include <string>

namespace orbelan::load {

// 1300000 as "1,300,000".
std::string grouped(std::uint64_t value);
// A value with the given number of decimals.
std::string fixed(double value, int decimals);
// Kilobytes as "85 MB" (MiB, rounded).
std::string megabytes(long kilobytes);

} // namespace orbelan::load
