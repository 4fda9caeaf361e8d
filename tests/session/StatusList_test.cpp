#include "session/StatusList.h"

#include <gtest/gtest.h>

using orbelan::StatusList;

namespace {

struct StatusLines : ::testing::Test {
    StatusList status;
};

TEST_F(StatusLines, RequestsOfOneLayerAreCountedOnOneLine)
{
    status.change(0, StatusList::RequestingMap);
    status.change(7, StatusList::RequestingLayer, "Calles");
    status.change(7, StatusList::RequestingLayer, "Calles");
    status.change(8, StatusList::RequestingLabels, "Barrios");
    status.change(8, StatusList::RequestingTheme, "Barrios");
    EXPECT_EQ(status.text(), "Requesting Map.\n"
                             "Requesting Layer Calles (2)\n"
                             "Requesting Labels Barrios (1)\n"
                             "Requesting Theme Information Barrios (1)");
}

TEST_F(StatusLines, LoadingTakesOneRequestOffAndShowsItself)
{
    status.change(7, StatusList::RequestingLayer, "Calles");
    status.change(7, StatusList::RequestingLayer, "Calles");
    status.change(7, StatusList::LoadingLayer, "Calles");
    EXPECT_EQ(status.text(), "Requesting Layer Calles (1)\nLoading Layer Calles");

    // The last request answered disappears; the loading line stays until removed.
    status.change(7, StatusList::LoadingLayer, "Calles");
    EXPECT_EQ(status.text(), "Loading Layer Calles\nLoading Layer Calles");
    status.change(7, StatusList::LoadingLayer + StatusList::Remove);
    status.change(7, StatusList::LoadingLayer + StatusList::Remove);
    EXPECT_TRUE(status.empty());
}

TEST_F(StatusLines, RemovingMovesTheLastLineIntoTheGap)
{
    status.change(0, StatusList::RequestingMap);
    status.change(1, StatusList::RequestingLayer, "A");
    status.change(2, StatusList::RequestingLayer, "B");
    status.change(3, StatusList::RequestingInformation);
    status.change(0, StatusList::RequestingMap + StatusList::Remove);
    EXPECT_EQ(status.text(), "Requesting Information.\nRequesting Layer A (1)\nRequesting Layer B (1)");
}

TEST_F(StatusLines, FixedTextsOfTheMapAndInformationSteps)
{
    status.change(0, StatusList::LoadingMap);
    status.change(4, StatusList::LoadingLabels);
    status.change(0, StatusList::LoadingInformation);
    status.change(4, StatusList::LoadingTheme);
    EXPECT_EQ(status.text(),
              "Loading Map.\nLoading Labels.\nLoading Information.\nLoading Theme Information.");
}

} // namespace
