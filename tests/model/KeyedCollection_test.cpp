#include "Campos.h"
#include "DuplicateKeyError.h"
#include "KeyedCollection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

using orbelan::DuplicateKeyError;

namespace {

// A collection of texts keyed by numbers, with the protected adders opened.
class Numbered : public orbelan::KeyedCollection<std::string, std::int32_t> {
public:
    std::string& Add(std::int32_t key, std::string text) { return Insert(key, std::make_unique<std::string>(text)); }
    using KeyedCollection::InsertBefore;
    using KeyedCollection::Take;
};

Numbered numbered(std::initializer_list<std::int32_t> keys)
{
    Numbered collection;
    for (std::int32_t key : keys) {
        collection.Add(key, "e" + std::to_string(key));
    }
    return collection;
}

std::vector<std::string> contents(const Numbered& collection)
{
    std::vector<std::string> texts;
    for (const std::string& text : collection.NewEnum()) {
        texts.push_back(text);
    }
    return texts;
}

TEST(KeyedCollectionLookup, PositionsAreOneBasedAndOutOfRangeIsNone)
{
    Numbered collection = numbered({30, 10, 20});
    EXPECT_EQ(collection.count(), 3);
    EXPECT_EQ(*collection.Item(1), "e30");
    EXPECT_EQ(*collection.Item(3), "e20");
    EXPECT_EQ(collection.Item(0), nullptr);
    EXPECT_EQ(collection.Item(4), nullptr);
    EXPECT_EQ(collection.Item(-1), nullptr);
}

TEST(KeyedCollectionLookup, KeyTextMustBeTheExactDecimalText)
{
    Numbered collection = numbered({12, -3});
    EXPECT_EQ(*collection.Item("12"), "e12");
    EXPECT_EQ(*collection.Item("-3"), "e-3");
    for (const char* other : {"012", " 12", "12 ", "+12", "12.0", "", "-0", "99999999999"}) {
        EXPECT_EQ(collection.Item(other), nullptr) << other;
    }
    EXPECT_EQ(*collection.Find(12), "e12");
    EXPECT_EQ(collection.Find(13), nullptr);
}

TEST(KeyedCollectionLookup, NameKeysCompareExactly)
{
    orbelan::Campos campos;
    campos.Add("STREET", 200);
    EXPECT_EQ(campos.Item("STREET")->Tipo, 200);
    EXPECT_EQ(campos.Item("street"), nullptr);
    EXPECT_EQ(campos.Item(1)->Nombre, "STREET");
}

TEST(KeyedCollectionAdding, DuplicateKeyFailsAndChangesNothing)
{
    Numbered collection = numbered({1, 2});
    EXPECT_THROW(collection.Add(1, "again"), DuplicateKeyError);
    EXPECT_EQ(contents(collection), (std::vector<std::string>{"e1", "e2"}));

    orbelan::Campos campos;
    campos.Add("NAME", 8);
    try {
        campos.Add("NAME", 3);
        FAIL() << "a second field NAME was accepted";
    } catch (const DuplicateKeyError& error) {
        EXPECT_EQ(error.key(), "NAME");
    }
    EXPECT_EQ(campos.count(), 1);
    EXPECT_EQ(campos.Item("NAME")->Tipo, 8);
}

TEST(KeyedCollectionAdding, InsertBeforeRenumbersTheFollowers)
{
    Numbered collection = numbered({1, 2, 3});
    collection.RemoveKey(1);
    collection.InsertBefore(2, 9, std::make_unique<std::string>("e9"));
    EXPECT_EQ(contents(collection), (std::vector<std::string>{"e2", "e9", "e3"}));
    EXPECT_EQ(*collection.Find(3), "e3");
    EXPECT_EQ(*collection.Item(3), "e3");
    EXPECT_THROW(collection.InsertBefore(4, 5, std::make_unique<std::string>("x")), std::out_of_range);
}

TEST(KeyedCollectionRemoving, PositionsCloseUpAndMissingIsNoError)
{
    Numbered collection = numbered({1, 2, 3, 4});
    EXPECT_TRUE(collection.Remove(2));
    EXPECT_TRUE(collection.Remove("4"));
    EXPECT_FALSE(collection.Remove("4"));
    EXPECT_FALSE(collection.Remove(3));
    EXPECT_FALSE(collection.RemoveKey(77));
    EXPECT_EQ(collection.count(), 2);
    EXPECT_EQ(*collection.Item(2), "e3");
    EXPECT_EQ(contents(collection), (std::vector<std::string>{"e1", "e3"}));
}

TEST(KeyedCollectionRemoving, ElementsDoNotMoveAndTakenOnesSurvive)
{
    Numbered collection;
    std::string& first = collection.Add(1, "first");
    for (std::int32_t key = 2; key <= 5000; ++key) {
        collection.Add(key, "x");
        collection.RemoveKey(key);
    }
    EXPECT_EQ(&first, collection.Item(1));
    const std::uint64_t before = collection.removals();
    std::unique_ptr<std::string> taken = collection.Take(1);
    EXPECT_EQ(taken.get(), &first);
    EXPECT_EQ(collection.count(), 0);
    EXPECT_NE(collection.removals(), before);
}

TEST(KeyedCollectionIterating, VisitsWhatIsAddedDuringTheLoop)
{
    Numbered collection = numbered({1, 2});
    std::vector<std::string> visited;
    for (const std::string& text : collection.NewEnum()) {
        visited.push_back(text);
        if (collection.count() < 4) {
            collection.Add(collection.count() + 1, "added");
        }
    }
    EXPECT_EQ(visited, (std::vector<std::string>{"e1", "e2", "added", "added"}));
}

// Removals may squeeze the holes out under the loop: it may then miss
// elements, but each one it visits is live and in order.
TEST(KeyedCollectionIterating, RemovingDuringTheLoopIsSafe)
{
    Numbered collection = numbered({1, 2, 3, 4, 5, 6});
    std::vector<std::string> visited;
    for (const std::string& text : collection.NewEnum()) {
        visited.push_back(text);
        collection.Remove(1);
    }
    ASSERT_FALSE(visited.empty());
    EXPECT_TRUE(std::ranges::is_sorted(visited));
    EXPECT_EQ(visited.size() + static_cast<std::size_t>(collection.count()), 6u);
}

// Random adds and removals by key and position, checked at every step
// against a plain vector, so that positions past holes, squeezing and
// re-adding are all exercised.
TEST(KeyedCollectionRemoving, AgreesWithAVectorThroughRandomChanges)
{
    std::mt19937 random(4);
    Numbered collection;
    std::vector<std::int32_t> model;
    std::int32_t nextKey = 1;
    for (int step = 0; step < 20000; ++step) {
        const auto choice = random() % 10;
        if (choice < 4 || model.empty()) {
            collection.Add(nextKey, "e" + std::to_string(nextKey));
            model.push_back(nextKey++);
        } else if (choice < 7) {
            const auto at = random() % model.size();
            ASSERT_TRUE(collection.Remove(static_cast<std::int32_t>(at + 1)));
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        } else {
            const auto at = random() % model.size();
            ASSERT_TRUE(collection.RemoveKey(model[at]));
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        }
        ASSERT_EQ(collection.count(), static_cast<std::int32_t>(model.size()));
        if (!model.empty()) {
            const auto at = random() % model.size();
            ASSERT_EQ(*collection.Item(static_cast<std::int32_t>(at + 1)), "e" + std::to_string(model[at]));
        }
    }
    std::vector<std::string> expected;
    std::ranges::transform(model, std::back_inserter(expected), [](std::int32_t key) { return "e" + std::to_string(key); });
    EXPECT_EQ(contents(collection), expected);
}

TEST(KeyedCollectionRemoving, ClearEmptiesAndKeysCanBeReused)
{
    Numbered collection = numbered({1, 2});
    collection.Clear();
    EXPECT_EQ(collection.count(), 0);
    EXPECT_EQ(collection.Item(1), nullptr);
    EXPECT_TRUE(contents(collection).empty());
    collection.Add(1, "again");
    EXPECT_EQ(*collection.Item("1"), "again");
}

} // namespace
