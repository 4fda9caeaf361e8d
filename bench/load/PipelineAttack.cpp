#include "load/PipelineAttack.h"

#include "load/AttackerPriority.h"
#include "load/TextFormat.h"

#include <poll.h>

#include <algorithm>

namespace orbelan::load {

using Clock = std::chrono::steady_clock;

PipelineAttack::PipelineAttack(std::string what, std::vector<Pipeline> pipelines, std::chrono::seconds deadline)
    : what_(std::move(what)), pipelines_(std::move(pipelines)), deadline_(deadline), start_(Clock::now())
{
    driver_ = std::jthread([this](const std::stop_token& stop) { drive(stop, start_ + deadline_); });
}

void PipelineAttack::drive(const std::stop_token& stop, Clock::time_point deadline)
{
    runAsBackground();
    std::vector<pollfd> entries(pipelines_.size());
    while (!stop.stop_requested() && !allFinished() && Clock::now() < deadline) {
        for (std::size_t i = 0; i < pipelines_.size(); ++i) {
            const bool done = pipelines_[i].finished();
            entries[i] = {done ? -1 : pipelines_[i].fd(), pipelines_[i].wanted(), 0};
        }
        ::poll(entries.data(), entries.size(), 100);
        for (std::size_t i = 0; i < pipelines_.size(); ++i) {
            if (entries[i].revents != 0) {
                pipelines_[i].advance(entries[i].revents);
            }
        }
    }
}

bool PipelineAttack::allFinished() const
{
    return std::ranges::all_of(pipelines_, &Pipeline::finished);
}

void PipelineAttack::leave()
{
    driver_.join();
    summary_ = summarise(std::chrono::duration<double>(Clock::now() - start_).count());
    pipelines_.clear();
}

std::string PipelineAttack::summarise(double seconds) const
{
    std::size_t sent = 0;
    std::size_t answered = 0;
    std::size_t closed = 0;
    for (const Pipeline& pipeline : pipelines_) {
        sent += pipeline.sent();
        answered += pipeline.answered();
        closed += pipeline.closed() ? 1 : 0;
    }
    std::string text = what_ + ": " + grouped(sent) + " requests sent, " + grouped(answered) + " answered in " +
                       fixed(seconds, 1) + " s";
    if (closed > 0) {
        text += "; the server closed " + grouped(closed) + " of " + grouped(pipelines_.size()) + " connections";
    }
    if (!allFinished()) {
        text += "; cut at the " + std::to_string(deadline_.count()) + " s deadline";
    }
    return text;
}

std::string PipelineAttack::observation() const
{
    return summary_;
}

} // namespace orbelan::load
