#include "protocol/MessageBatch.h"

namespace orbelan {

void MessageBatch::append(std::span<const std::uint8_t> message)
{
    bytes_.insert(bytes_.end(), message.begin(), message.end());
    ends_.push_back(bytes_.size());
}

std::span<const std::uint8_t> MessageBatch::operator[](std::size_t index) const
{
    const std::size_t begin = index == 0 ? 0 : ends_.at(index - 1);
    return std::span(bytes_).subspan(begin, ends_.at(index) - begin);
}

} // namespace orbelan
