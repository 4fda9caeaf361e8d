#include "DuplicateKeyError.h"
#include "Labels.h"
#include "ThematicMap.h"

#include <gtest/gtest.h>

using orbelan::Theme;
using orbelan::ThematicMap;

namespace {

TEST(ThematicMapAdding, StoresEachArgumentInItsField)
{
    ThematicMap classes;
    const Theme& added = classes.Add(2, 3, 0x0000FF, 0x00FF00, 6, "10", "20");
    EXPECT_EQ(added.DrawStyle, 2);
    EXPECT_EQ(added.DrawWidth, 3);
    EXPECT_EQ(added.DrawColor, 0x0000FF);
    EXPECT_EQ(added.FillColor, 0x00FF00);
    EXPECT_EQ(added.FillStyle, 6);
    EXPECT_EQ(added.min, "10");
    EXPECT_EQ(added.max, "20");
}

TEST(ThematicMapAdding, KeysCountFromOneAndRestartAfterClear)
{
    ThematicMap classes;
    classes.Add(0, 1, 0, 0, 0, "MICanyMIC", "");
    classes.Add(0, 1, 0, 0, 0, "A", "");
    EXPECT_EQ(classes.Item("1")->min, "MICanyMIC");
    EXPECT_EQ(classes.Item("2")->min, "A");
    classes.Clear();
    classes.Add(0, 1, 0, 0, 0, "B", "");
    EXPECT_EQ(classes.Item("1")->min, "B");
}

// The key is count + 1, so after a removal from the middle the next key is
// one already in use.
TEST(ThematicMapAdding, AfterARemovalTheNextKeyCanClash)
{
    orbelan::Labels labels;
    labels.Add("a");
    labels.Add("b");
    labels.Add("c");
    labels.Remove("1");
    EXPECT_THROW(labels.Add("d"), orbelan::DuplicateKeyError);
    EXPECT_EQ(labels.count(), 2);
}

TEST(ThemeDefaults, ANewClassIsCyanFilledWithABlueOutline)
{
    const Theme fresh;
    EXPECT_EQ(fresh.FillStyle, 0);
    EXPECT_EQ(fresh.FillColor, 0xC0C000);
    EXPECT_EQ(fresh.DrawColor, 0xFF0000);
    EXPECT_EQ(fresh.DrawWidth, 1);
    EXPECT_EQ(fresh.DrawStyle, 0);
    EXPECT_EQ(fresh.min, "");
    EXPECT_EQ(fresh.max, "");
}

} // namespace
