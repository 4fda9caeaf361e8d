#include "load/RssSampler.h"

#include <chrono>

namespace orbelan::load {

RssSampler::RssSampler(const ServerProcess& server)
    : server_(server), thread_([this](const std::stop_token& stop) { sample(stop); })
{
}

void RssSampler::sample(const std::stop_token& stop)
{
    while (!stop.stop_requested()) {
        const long now = server_.residentKilobytes();
        long peak = peak_.load();
        while (now > peak && !peak_.compare_exchange_weak(peak, now)) {
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

} // namespace orbelan::load
