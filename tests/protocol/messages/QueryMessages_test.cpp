#include "protocol/messages/AttributeUpdate.h"
#include "protocol/messages/ConstrainedElementQuery.h"
#include "protocol/messages/ElementInformation.h"
#include "protocol/messages/ElementInformationRequest.h"
#include "protocol/messages/FieldStatistics.h"
#include "protocol/messages/FieldStatisticsRequest.h"
#include "protocol/messages/FindByConditionRequest.h"
#include "protocol/messages/FindByConditionResult.h"
#include "protocol/messages/MultipleAttributeUpdate.h"
#include "protocol/messages/ResultTable.h"
#include "MessageRoundTrip.h"

#include <gtest/gtest.h>

using namespace orbelan;
using namespace orbelan::messages;
using Bytes = std::vector<std::uint8_t>;

namespace {

const Condition kBetween{4, "SUPERFICIE", 5, conditionop::kBetween, "100", "250.5"};

TEST(QueryMessages, RequestsAndRepliesSurviveEveryTruncation)
{
    expectRoundTripAndTruncation(ElementInformationRequest{4, 99});
    expectRoundTripAndTruncation(
        ElementInformation{4, 99, true, {{3, "-7"}, {2, "12"}, {4, "0.1"}, {5, "2.5"}, {202, "Ñuñoa"}, {7, ""}}});
    expectRoundTripAndTruncation(FindByConditionRequest{kBetween});
    expectRoundTripAndTruncation(FindByConditionResult{kBetween, {{11, "120"}, {12, "250.5"}}});
    expectRoundTripAndTruncation(ConstrainedElementQuery{
        4, {11, 12, 13}, {{"USO", 202, conditionop::kEqual, "Comercial", ""}, {"PISOS", 2, conditionop::kBetween, "1", "3"}}});
    expectRoundTripAndTruncation(ResultTable{4, 3, {11, 12}, {"Comercial", "3", "Vivienda", ""}});
    expectRoundTripAndTruncation(AttributeUpdate{4, 99, 57, 109, 2, 202, "Comercial"});
    expectRoundTripAndTruncation(FieldStatisticsRequest{102, "USO", 1});
    expectRoundTripAndTruncation(FieldStatistics{102, "USO", 1, {"Comercial", "", "Vivienda"}});
    expectRoundTripAndTruncation(FieldStatistics{102, "AREA", 2, {"-1.5", "100"}});
    expectRoundTripAndTruncation(
        MultipleAttributeUpdate{4, {11, 12}, {57, 58}, {109, 109}, {{"USO", 202, "Comercial"}, {"PISOS", 2, "4"}}});
}

TEST(QueryMessages, ElementWithoutInformationIsACountOfMinusOne)
{
    const Bytes bytes = buildMessage(ElementInformation::none(4, 99)).buffer();
    EXPECT_EQ(Bytes(bytes.end() - 2, bytes.end()), (Bytes{0xFF, 0xFF}));
    const ElementInformation received = decodeWhole<ElementInformation>(bytes);
    EXPECT_FALSE(received.known);
    EXPECT_TRUE(received.values.empty());
}

TEST(QueryMessages, ValuesTravelInTheWidthOfTheirFieldType)
{
    // Type code, then the value: an Integer for 2, a Long for 3, a String for
    // 202 and nothing at all for a date (7).
    const Bytes bytes = buildMessage(ElementInformation{4, 99, true, {{2, "12"}, {3, "-7"}, {202, "ab"}, {7, "x"}}}).buffer();
    const Bytes payload(bytes.begin() + 10, bytes.end());
    const Bytes expected = {4, 0, 0, 0, 99, 0, 0, 0, 4, 0,             // layer, element, count
                            2, 0, 12, 0,                               // short integer
                            3, 0, 0xF9, 0xFF, 0xFF, 0xFF,              // long integer
                            202, 0, 2, 0, 'a', 'b',                    // text
                            7, 0};                                     // no value
    EXPECT_EQ(payload, expected);
}

TEST(QueryMessages, NumbersTheFieldCannotHoldAreSentAsTheFieldStoresThem)
{
    const ElementInformation received = decodeWhole<ElementInformation>(
        buildMessage(ElementInformation{4, 99, true, {{2, "2.5"}, {2, "70000"}, {3, "abc"}, {4, "0.1234567891"}}}).buffer());
    const std::vector<TypedValue> expected = {{2, "2"}, {2, "0"}, {3, "0"}, {4, "0.1234568"}};
    EXPECT_EQ(received.values, expected);
}

TEST(QueryMessages, FoundValuesOfAnUnknownTypeAreEmptyTexts)
{
    const Condition onDate{4, "FECHA", 7, conditionop::kEqual, "2020", ""};
    const FindByConditionResult received =
        decodeWhole<FindByConditionResult>(buildMessage(FindByConditionResult{onDate, {{11, "x"}, {12, "y"}}}).buffer());
    const std::vector<FindByConditionResult::Found> expected = {{11, ""}, {12, ""}};
    EXPECT_EQ(received.elements, expected);
}

TEST(QueryMessages, UpdateListsNamesThenTypesThenValues)
{
    const Bytes bytes =
        buildMessage(MultipleAttributeUpdate{4, {11}, {57}, {109}, {{"A", 202, "x"}, {"B", 2, "4"}}}).buffer();
    const Bytes payload(bytes.begin() + 10, bytes.end());
    const Bytes expected = {4, 0, 0, 0, 1, 0, 0, 0, 11, 0, 0, 0,       // layer, one element
                            1, 0, 0, 0, 57, 0, 0, 0, 109, 0, 0, 0,     // one cell: i list, j list
                            2, 0, 0, 0,                                // two fields
                            1, 0, 'A', 1, 0, 'B',                      // names
                            202, 0, 2, 0,                              // types
                            1, 0, 'x', 1, 0, '4'};                     // values, always as text
    EXPECT_EQ(payload, expected);
}

TEST(QueryMessages, ResultTableRowsAreReadAsLongAsTheyAreWhole)
{
    ResultTable table{4, 3, {11, 12}, {"a", "b", "c", "d"}};
    EXPECT_EQ(table.value(1, 0), "c");
    table.values.pop_back();
    EXPECT_THROW(buildMessage(table), std::invalid_argument);
}

} // namespace
