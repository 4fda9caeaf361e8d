#include "serving/CellReplyCache.h"

#include <gtest/gtest.h>

#include <memory>

using orbelan::server::CellReplyCache;

namespace {

CellReplyCache::Entry entryOf(std::size_t size, std::uint8_t fill)
{
    return {std::make_shared<std::vector<std::uint8_t>>(size, fill), size / 10};
}

TEST(CellReplyCache, KeepsRepliesByLayerAndCellWithinItsBudget)
{
    const std::size_t overhead = CellReplyCache::kEntryOverhead;
    const std::size_t budget = 100 + 3 * overhead;
    CellReplyCache cache(budget);
    cache.store(1, 2, 3, entryOf(40, 1));
    cache.store(1, 3, 2, entryOf(40, 2));
    ASSERT_NE(cache.find(1, 2, 3), nullptr);
    EXPECT_EQ(cache.find(1, 2, 3)->reply->front(), 1);
    EXPECT_EQ(cache.find(1, 3, 2)->reply->front(), 2);
    EXPECT_EQ(cache.find(2, 2, 3), nullptr);

    cache.store(1, 2, 3, entryOf(50, 3));
    EXPECT_EQ(cache.bytes(), 90 + 2 * overhead) << "a replaced reply no longer counts";
    cache.find(1, 3, 2);
    cache.store(4, 4, 4, entryOf(30, 4));
    EXPECT_EQ(cache.find(1, 2, 3), nullptr) << "the least recently used entry makes room";
    EXPECT_NE(cache.find(1, 3, 2), nullptr) << "a recently found entry stays";
    EXPECT_NE(cache.find(4, 4, 4), nullptr);
    cache.store(5, 5, 5, entryOf(budget, 5));
    EXPECT_EQ(cache.find(5, 5, 5), nullptr) << "a reply beyond the budget is not kept";

    for (std::int32_t row = 0; row < 1000; ++row) {
        cache.store(6, row, 0, entryOf(0, 6));
        ASSERT_LE(cache.bytes(), budget);
    }
    EXPECT_EQ(cache.find(6, 0, 0), nullptr) << "empty replies count too";
    EXPECT_NE(cache.find(6, 999, 0), nullptr);
}

} // namespace
