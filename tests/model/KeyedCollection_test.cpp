#include "model/Campos.h"
#include "model/DuplicateKeyError.h"
#include "model/KeyedCollection.h"
#include "model/Labels.h"
#include "model/ThematicMap.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

// Texts keyed by numbers, with the protected adders opened.
class Numbered : public orbelan::KeyedCollection<std::string, std::int32_t> {
public:
    explicit Numbered(std::initializer_list<std::int32_t> keys = {})
    {
        for (std::int32_t key : keys) {
            Add(key);
        }
    }
    std::string& Add(std::int32_t key) { return Insert(key, std::make_unique<std::string>("e" + std::to_string(key))); }
    using KeyedCollection::Take;

    std::vector<std::string> contents() const
    {
        std::vector<std::string> texts;
        for (const std::string& text : NewEnum()) {
            texts.push_back(text);
        }
        return texts;
    }
};

TEST(KeyedCollectionLookup, ByOneBasedPositionOrExactKeyText)
{
    Numbered collection{30, -3, 12};
    EXPECT_EQ(*collection.Item(1), "e30");
    EXPECT_EQ(*collection.Item(3), "e12");
    for (std::int32_t outside : {0, 4, -1}) {
        EXPECT_EQ(collection.Item(outside), nullptr) << outside;
    }
    EXPECT_EQ(*collection.Item("12"), "e12");
    EXPECT_EQ(*collection.Item("-3"), "e-3");
    for (const char* other : {"012", " 12", "+12", "12.0", "", "-0", "99999999999"}) {
        EXPECT_EQ(collection.Item(other), nullptr) << other;
    }

    orbelan::Campos campos;
    campos.Add("STREET", 200);
    EXPECT_EQ(campos.Item("STREET")->Tipo, 200);
    EXPECT_EQ(campos.Item("street"), nullptr);
}

TEST(KeyedCollectionAdding, ADuplicateKeyFailsAndChangesNothing)
{
    orbelan::Campos campos;
    campos.Add("NAME", 8);
    EXPECT_THROW(campos.Add("NAME", 3), orbelan::DuplicateKeyError);
    EXPECT_EQ(campos.count(), 1);
    EXPECT_EQ(campos.Item("NAME")->Tipo, 8);
}

// Removing from the middle leaves count + 1 taken by the last element: the
// next numbered element goes past the largest key; after Clear, "1" again.
TEST(KeyedCollectionAdding, NumberedElementsAfterARemovalTakeAFreeKey)
{
    orbelan::ThematicMap themes;
    orbelan::Labels labels;
    for (const char* text : {"a", "b", "c"}) {
        themes.Add(0, 1, 0, 0, 0, text, text);
        labels.Add(text);
    }
    ASSERT_TRUE(themes.Remove("2"));
    ASSERT_TRUE(labels.Remove(2));
    EXPECT_EQ(themes.Add(0, 1, 0, 0, 0, "d", "d").min, "d");
    EXPECT_EQ(labels.Add("d").word, "d");
    EXPECT_EQ(themes.Item("4")->min, "d");
    EXPECT_EQ(labels.Item("4")->word, "d");
    EXPECT_EQ(themes.Item(3)->min, "d");
    EXPECT_EQ(themes.Item("3")->min, "c");

    themes.Clear();
    themes.Add(0, 1, 0, 0, 0, "MICanyMIC", "");
    EXPECT_EQ(themes.Item("1")->min, "MICanyMIC");
}

TEST(KeyedCollectionRemoving, ElementsStayPutAndTakenOnesSurvive)
{
    Numbered collection{1};
    const std::string* first = collection.Item(1);
    for (std::int32_t key = 2; key <= 5000; ++key) {
        collection.Add(key);
        collection.Remove(std::to_string(key));
    }
    EXPECT_EQ(collection.Item(1), first);
    EXPECT_FALSE(collection.Remove("2"));
    EXPECT_EQ(collection.Take(1).get(), first);
    EXPECT_EQ(collection.count(), 0);
}

// Random adds and removals by key and by position, checked at every step
// against a plain vector: positions past holes, squeezing and the position
// index are all exercised.
TEST(KeyedCollectionRemoving, AgreesWithAVectorThroughRandomChanges)
{
    std::mt19937 random(4);
    Numbered collection;
    std::vector<std::string> model;
    for (std::int32_t step = 1; step <= 20000; ++step) {
        const auto choice = random() % 10;
        const auto at = model.empty() ? 0 : random() % model.size();
        if (choice < 4 || model.empty()) {
            model.push_back(collection.Add(step));
        } else if (choice < 7) {
            ASSERT_TRUE(collection.Remove(static_cast<std::int32_t>(at + 1)));
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        } else {
            ASSERT_TRUE(collection.Remove(std::string_view(model[at]).substr(1)));
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        }
        ASSERT_EQ(collection.count(), static_cast<std::int32_t>(model.size()));
        if (!model.empty()) {
            const auto probe = random() % model.size();
            ASSERT_EQ(*collection.Item(static_cast<std::int32_t>(probe + 1)), model[probe]);
        }
    }
    EXPECT_EQ(collection.contents(), model);
}

} // namespace
