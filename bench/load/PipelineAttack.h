#pragma once

#include "load/Attack.h"
#include "load/Pipeline.h"

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace orbelan::load {

// Pipelined connections that each send a bounded sequence of requests, on a
// thread of their own, until every request is answered or the deadline.
class PipelineAttack : public Attack {
public:
    PipelineAttack(std::string what, std::vector<Pipeline> pipelines, std::chrono::seconds deadline);

    // Waits for the pipelines to finish or the deadline to pass.
    void leave() override;
    std::string observation() const override;

private:
    void drive(const std::stop_token& stop, std::chrono::steady_clock::time_point deadline);
    bool allFinished() const;
    std::string summarise(double seconds) const;

    std::string what_;
    std::vector<Pipeline> pipelines_;
    std::chrono::seconds deadline_;
    std::chrono::steady_clock::time_point start_;
    std::string summary_;
    std::jthread driver_;
};

} // namespace orbelan::load
