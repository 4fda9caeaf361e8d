#include "protocol/messages/MessageIO.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>

namespace orbelan::messages {

namespace {

template <typename Count>
Count checkedCount(std::size_t count)
{
    if (count > static_cast<std::size_t>(std::numeric_limits<Count>::max())) {
        throw std::length_error("a list of " + std::to_string(count) +
                                " records is longer than its count field can say");
    }
    return static_cast<Count>(count);
}

} // namespace

CommandCode readHeader(DWBUffer& message)
{
    message.GetLong();
    message.GetLong();
    return static_cast<CommandCode>(message.GetInteger());
}

std::int16_t shortCount(std::size_t count)
{
    return checkedCount<std::int16_t>(count);
}

std::int32_t longCount(std::size_t count)
{
    return checkedCount<std::int32_t>(count);
}

std::size_t recordCount(std::int32_t count)
{
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

std::size_t reservableRecords(const DWBUffer& message, std::size_t count, std::size_t minimumSize)
{
    const std::int64_t unread = message.TamanoBuffer() - message.readPosition() + 1;
    const auto left = unread > 0 ? static_cast<std::size_t>(unread) : std::size_t{0};
    return std::min(count, left / std::max<std::size_t>(minimumSize, 1));
}

} // namespace orbelan::messages
