#include "serving/CellReplyCache.h"

#include <functional>
#include <utility>

namespace orbelan::server {

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

const CellReplyCache::Entry* CellReplyCache::find(std::int32_t layer, std::int32_t row,
                                                  std::int32_t column) const
{
    const auto found = replies_.find({layer, row, column});
    return found == replies_.end() ? nullptr : &found->second;
}

void CellReplyCache::store(std::int32_t layer, std::int32_t row, std::int32_t column, Entry entry)
{
    const std::size_t size = entry.reply.size();
    if (size > budget_) {
        return;
    }
    if (const auto found = replies_.find({layer, row, column}); found != replies_.end()) {
        bytes_ -= found->second.reply.size();
        replies_.erase(found);
    }
    if (bytes_ + size > budget_) {
        replies_.clear();
        bytes_ = 0;
    }
    bytes_ += size;
    replies_.emplace(Key{layer, row, column}, std::move(entry));
}

} // namespace orbelan::server
