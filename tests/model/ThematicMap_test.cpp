#include "ThematicMap.h"

#include <gtest/gtest.h>

namespace {

TEST(ThematicMapAdd, StoresEachArgumentInItsFieldUnderCountPlusOne)
{
    orbelan::ThematicMap classes;
    classes.Add(0, 1, 0, 0, 0, "MICanyMIC", "");
    const orbelan::Theme& added = classes.Add(2, 3, 0x0000FF, 0x00FF00, 6, "10", "20");
    EXPECT_EQ(classes.Item("2"), &added);
    EXPECT_EQ(added.DrawStyle, 2);
    EXPECT_EQ(added.DrawWidth, 3);
    EXPECT_EQ(added.DrawColor, 0x0000FF);
    EXPECT_EQ(added.FillColor, 0x00FF00);
    EXPECT_EQ(added.FillStyle, 6);
    EXPECT_EQ(added.min, "10");
    EXPECT_EQ(added.max, "20");
}

TEST(ThematicMapAdd, KeysRestartAfterClear)
{
    orbelan::ThematicMap classes;
    classes.Add(0, 1, 0, 0, 0, "MICanyMIC", "");
    classes.Add(0, 1, 0, 0, 0, "A", "");
    classes.Clear();
    classes.Add(0, 1, 0, 0, 0, "B", "");
    EXPECT_EQ(classes.Item("1")->min, "B");
}

} // namespace
