#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace orbelan::server {

// Whole cell geometry replies already built, by layer and cell. A cell's
// geometry only changes when its elements do, and nothing changes elements
// while the server runs, so the store is read and the reply encoded once per
// cell. The cache holds at most a budget of bytes; when a reply would exceed
// it, the cache starts afresh.
class CellReplyCache {
public:
    static constexpr std::size_t kDefaultBudget = 64u * 1024 * 1024;

    struct Entry {
        std::vector<std::uint8_t> reply;
        // How many elements the reply carries, for the log.
        std::size_t elements = 0;
    };

    explicit CellReplyCache(std::size_t budget = kDefaultBudget);

    // The cell's entry, or nullptr when its reply has not been built yet.
    const Entry* find(std::int32_t layer, std::int32_t row, std::int32_t column) const;
    void store(std::int32_t layer, std::int32_t row, std::int32_t column, Entry entry);
    std::size_t bytes() const { return bytes_; }

private:
    struct Key {
        std::int32_t layer;
        std::int32_t row;
        std::int32_t column;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };

    std::size_t budget_;
    std::size_t bytes_ = 0;
    std::unordered_map<Key, Entry, KeyHash> replies_;
};

} // namespace orbelan::server
