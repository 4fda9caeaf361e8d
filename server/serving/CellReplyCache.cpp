#include "serving/CellReplyCache.h"

#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace orbelan::server {

namespace {

// What the allocator adds to each block: glibc's header and its rounding to
// 16 bytes.
constexpr std::size_t kAllocationAllowance = 16;

} // namespace

// Four blocks per entry: the recency list's node (two links and the entry),
// the index's node (a link, the key with its list position, and the hash the
// index keeps beside them) with its bucket, the reply's shared block (two
// counts, a table pointer and the vector) and the reply's bytes, counted
// apart at their capacity.
const std::size_t CellReplyCache::kEntryOverhead =
    2 * sizeof(void*) + sizeof(Cached) +
    sizeof(void*) + sizeof(std::pair<const Key, Recency::iterator>) + sizeof(std::size_t) +
    sizeof(void*) +
    3 * sizeof(void*) + sizeof(std::vector<std::uint8_t>) +
    4 * kAllocationAllowance;

CellReplyCache::CellReplyCache(std::size_t budget)
    : budget_(budget)
{
}

std::size_t CellReplyCache::KeyHash::operator()(const Key& key) const
{
    const auto row = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.row));
    const auto column = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.column));
    const auto layer = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.layer));
    return std::hash<std::uint64_t>{}(((row << 32) | column) ^ (layer * 0x9E3779B97F4A7C15ull));
}

std::size_t CellReplyCache::cost(const Entry& entry)
{
    return kEntryOverhead + (entry.reply ? entry.reply->capacity() : 0);
}

const CellReplyCache::Entry* CellReplyCache::find(std::int32_t layer, std::int32_t row,
                                                  std::int32_t column)
{
    const auto found = index_.find({layer, row, column});
    if (found == index_.end()) {
        return nullptr;
    }
    recency_.splice(recency_.begin(), recency_, found->second);
    return &found->second->entry;
}

void CellReplyCache::store(std::int32_t layer, std::int32_t row, std::int32_t column, Entry entry)
{
    const Key key{layer, row, column};
    if (const auto found = index_.find(key); found != index_.end()) {
        forget(found->second);
    }
    const std::size_t size = cost(entry);
    if (size > budget_) {
        return;
    }
    while (bytes_ + size > budget_) {
        forget(std::prev(recency_.end()));
    }
    recency_.push_front({key, std::move(entry)});
    index_.emplace(key, recency_.begin());
    bytes_ += size;
}

void CellReplyCache::forget(Recency::iterator cached)
{
    bytes_ -= cost(cached->entry);
    index_.erase(cached->key);
    recency_.erase(cached);
}

} // namespace orbelan::server
