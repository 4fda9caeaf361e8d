#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace orbelan {

// The IDs of the elements picked for the current tool, in the order they
// were picked; an ID picked again is there once, and one taken out goes
// without a trace.
class PickCollection {
public:
    void add(std::int32_t id);
    void remove(std::int32_t id);
    void clear();
    const std::vector<std::int32_t>& ids() const { return ids_; }

private:
    std::vector<std::int32_t> ids_;
    std::unordered_set<std::int32_t> members_;
};

} // namespace orbelan
