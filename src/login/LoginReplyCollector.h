#pragma once

#include "protocol/DWBUffer.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orbelan {

// Collects the one reply of a login connection: "MIC ", the total length,
// then bytes until that length is reached. No stream of several messages is
// cut here; bytes past the declared length are ignored.
//
// A start that is not "MIC ", or a declared length too short for a command
// code or beyond the framer's maximum, makes the reply foreign at once:
// nothing is allocated for it and nothing more is collected.
class LoginReplyCollector {
public:
    enum class Progress { Collecting, Complete, Foreign };

    // Forgets what was collected; the next byte starts a new reply.
    void reset();
    Progress feed(std::span<const std::uint8_t> bytes);
    // The whole reply, read position at byte 1; empty until Complete.
    DWBUffer& reply() { return reply_; }

private:
    Progress check();

    std::vector<std::uint8_t> bytes_;
    DWBUffer reply_;
    Progress progress_ = Progress::Collecting;
};

} // namespace orbelan
