#pragma once

#include "serving/SharedReply.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>

namespace orbelan::server {

// Whole cell geometry replies already built, by layer and cell. A cell's
// geometry only changes when its elements do, and nothing changes elements
// while the server runs, so the store is read and the reply encoded once per
// cell. The cache holds at most a budget of bytes, counting what each entry
// really takes (its reply, key and bookkeeping); a new entry that does not
// fit pushes out the least recently used ones, one by one, until it does.
class CellReplyCache {
public:
    static constexpr std::size_t kDefaultBudget = 64u * 1024 * 1024;
    // What an entry takes besides its reply's bytes.
    static const std::size_t kEntryOverhead;

    struct Entry {
        SharedReply reply;
        // How many elements the reply carries, for the log.
        std::size_t elements = 0;
    };

    explicit CellReplyCache(std::size_t budget = kDefaultBudget);

    // The cell's entry, which becomes the most recently used, or nullptr when
    // its reply is not kept. The pointer is valid until the next store.
    const Entry* find(std::int32_t layer, std::int32_t row, std::int32_t column);
    // Keeps the entry as the most recently used; an entry larger than the
    // whole budget is not kept.
    void store(std::int32_t layer, std::int32_t row, std::int32_t column, Entry entry);
    // The memory the entries take, as counted against the budget.
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
    struct Cached {
        Key key;
        Entry entry;
    };
    // Most recently used first.
    using Recency = std::list<Cached>;

    static std::size_t cost(const Entry& entry);
    void forget(Recency::iterator cached);

    std::size_t budget_;
    std::size_t bytes_ = 0;
    Recency recency_;
    std::unordered_map<Key, Recency::iterator, KeyHash> index_;
};

} // namespace orbelan::server
