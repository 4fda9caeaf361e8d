#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

namespace orbelan {

// Raised when a message is read past its end or holds a field that cannot be
// decoded. It is thrown before any byte outside the message is touched; the
// dispatcher catches it and abandons the rest of that message.
class WireReadError : public std::runtime_error {
public:
    // offset: 1-based index of the first byte the read wanted; width: how many
    // bytes it wanted; command: the message's command code when it has one.
    WireReadError(std::int64_t offset, std::int64_t width, std::optional<std::int16_t> command,
                  const std::string& what);

    std::int64_t offset() const { return offset_; }
    std::int64_t width() const { return width_; }
    std::optional<std::int16_t> command() const { return command_; }

private:
    std::int64_t offset_;
    std::int64_t width_;
    std::optional<std::int16_t> command_;
};

} // namespace orbelan
