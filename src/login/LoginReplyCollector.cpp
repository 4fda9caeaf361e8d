#include "login/LoginReplyCollector.h"

#include "protocol/MessageFramer.h"

#include <algorithm>
#include <array>

namespace orbelan {

namespace {

constexpr std::array<std::uint8_t, 4> kSignature = {'M', 'I', 'C', ' '};

} // namespace

void LoginReplyCollector::reset()
{
    bytes_.clear();
    reply_.ClearBuffer();
    progress_ = Progress::Collecting;
}

LoginReplyCollector::Progress LoginReplyCollector::feed(std::span<const std::uint8_t> bytes)
{
    if (progress_ != Progress::Collecting) {
        return progress_;
    }
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    progress_ = check();
    return progress_;
}

LoginReplyCollector::Progress LoginReplyCollector::check()
{
    const std::size_t signatureBytes = std::min(bytes_.size(), kSignature.size());
    if (!std::equal(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(signatureBytes), kSignature.begin())) {
        return Progress::Foreign;
    }
    if (bytes_.size() < DWBUffer::kHeaderSize) {
        return Progress::Collecting;
    }
    const std::int64_t expected = DWBUffer(std::span(bytes_).first(DWBUffer::kHeaderSize)).getLength();
    if (expected < static_cast<std::int64_t>(MessageFramer::kMinimumLength) ||
        expected > static_cast<std::int64_t>(MessageFramer::kDefaultMaximumLength)) {
        return Progress::Foreign;
    }
    if (bytes_.size() < static_cast<std::size_t>(expected)) {
        return Progress::Collecting;
    }
    reply_.setBuffer(std::span(bytes_).first(static_cast<std::size_t>(expected)));
    bytes_.clear();
    return Progress::Complete;
}

} // namespace orbelan
