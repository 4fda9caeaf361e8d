#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orbelan {

// Whole messages cut out of one arrival, in the order they came, stored back
// to back in one block so that an arrival costs one allocation, not one per
// message.
class MessageBatch {
public:
    void append(std::span<const std::uint8_t> message);

    std::size_t size() const { return ends_.size(); }
    bool empty() const { return ends_.empty(); }
    std::span<const std::uint8_t> operator[](std::size_t index) const;

private:
    std::vector<std::uint8_t> bytes_;
    std::vector<std::size_t> ends_;
};

} // namespace orbelan
