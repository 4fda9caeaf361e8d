#pragma once

#include "load/ServerProcess.h"

#include <atomic>
#include <thread>

namespace orbelan::load {

// Samples the server's resident memory every few milliseconds while it
// exists and keeps the peak.
class RssSampler {
public:
    explicit RssSampler(const ServerProcess& server);

    long peakKilobytes() const { return peak_.load(); }

private:
    void sample(const std::stop_token& stop);

    const ServerProcess& server_;
    std::atomic<long> peak_{0};
    std::jthread thread_;
};

} // namespace orbelan::load
