#include "protocol/WireReadError.h"

namespace orbelan {

namespace {

std::string describe(std::int64_t offset, std::int64_t width, std::optional<std::int16_t> command,
                     const std::string& what)
{
    std::string text = what + " (wanted " + std::to_string(width) + " byte(s) at offset " +
                       std::to_string(offset);
    if (command) {
        text += " of a message with command " + std::to_string(*command);
    }
    return text + ")";
}

} // namespace

WireReadError::WireReadError(std::int64_t offset, std::int64_t width,
                             std::optional<std::int16_t> command, const std::string& what)
    : std::runtime_error(describe(offset, width, command, what)),
      offset_(offset),
      width_(width),
      command_(command)
{
}

} // namespace orbelan
