#include "serving/CellReplyCache.h"

#include <gtest/gtest.h>

using orbelan::server::CellReplyCache;

namespace {

CellReplyCache::Entry entryOf(std::size_t size, std::uint8_t fill)
{
    return {std::vector<std::uint8_t>(size, fill), size / 10};
}

TEST(CellReplyCache, KeepsRepliesByLayerAndCellWithinItsBudget)
{
    CellReplyCache cache(100);
    cache.store(1, 2, 3, entryOf(40, 1));
    cache.store(1, 3, 2, entryOf(40, 2));
    ASSERT_NE(cache.find(1, 2, 3), nullptr);
    EXPECT_EQ(cache.find(1, 2, 3)->reply.front(), 1);
    EXPECT_EQ(cache.find(1, 3, 2)->reply.front(), 2);
    EXPECT_EQ(cache.find(2, 2, 3), nullptr);

    cache.store(1, 2, 3, entryOf(50, 3));
    EXPECT_EQ(cache.bytes(), 90u) << "a replaced reply no longer counts";
    cache.store(4, 4, 4, entryOf(30, 4));
    EXPECT_LE(cache.bytes(), 100u);
    EXPECT_NE(cache.find(4, 4, 4), nullptr);
    cache.store(5, 5, 5, entryOf(101, 5));
    EXPECT_EQ(cache.find(5, 5, 5), nullptr) << "a reply beyond the budget is not kept";
}

} // namespace
