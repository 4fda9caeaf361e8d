#include "protocol/messages/AttributeUpdate.h"
#include "protocol/messages/ConstrainedElementQuery.h"
#include "protocol/messages/ElementChange.h"
#include "protocol/messages/ElementInformation.h"
#include "protocol/messages/ElementInformationRequest.h"
#include "protocol/messages/FieldStatistics.h"
#include "protocol/messages/FieldStatisticsRequest.h"
#include "protocol/messages/FindByConditionRequest.h"
#include "protocol/messages/FindByConditionResult.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/messages/MultipleAttributeUpdate.h"
#include "protocol/messages/ResultTable.h"
#include "serving/RequestHandler.h"
#include "storage/MapWriter.h"
#include "SampleStore.h"

#include <gtest/gtest.h>

using namespace orbelan;
using namespace orbelan::messages;
using namespace orbelan::server;
namespace op = orbelan::messages::conditionop;

namespace {

constexpr std::int32_t kParcels = 14;
using Ids = std::vector<std::int32_t>;

// Parcels whose names differ in case, accents, wildcards and quotes; user 1
// edits them, user 2 views them, user 3 has no level on them.
class AttributeRequests : public ::testing::Test {
protected:
    void SetUp() override
    {
        MapWriter writer(store.database());
        LayerRecord parcels;
        parcels.id = kParcels;
        parcels.name = "Predios";
        parcels.type = 4;
        parcels.fields = {{"NOMBRE", 202}, {"AREA", 5}, {"PISOS", 2}};
        writer.addLayer(SampleStore::kMap, parcels);
        const char* names[] = {"Ñandú 50%", "ÑANDÚ", "nandu_x", "Casa ÁRBOL", "'; DROP TABLE x; --"};
        const double areas[] = {10, 2.5, -1, 100, 0};
        for (std::int32_t id = 1; id <= 5; ++id) {
            writer.addElement(kParcels, {id, {{-70.65, -33.45}}, {names[id - 1], areas[id - 1], id}});
        }
        writer.setLayerLevel(1, kParcels, 3);
        writer.setLayerLevel(2, kParcels, 1);
        writer.indexAttributes();
    }

    HandlerOutcome send(SessionState& session, const auto& request)
    {
        DWBUffer message = buildMessage(request);
        return handler.handle(session, message);
    }
    template <typename Reply>
    Reply ask(SessionState& session, const auto& request)
    {
        const HandlerOutcome outcome = send(session, request);
        EXPECT_EQ(outcome.action, HandlerOutcome::Action::Reply) << outcome.note;
        DWBUffer reply(*outcome.reply);
        EXPECT_EQ(readHeader(reply), Reply::kCode);
        return Reply::decode(reply);
    }
    ResultTable table(SessionState& session, Ids candidates, std::vector<ConstrainedElementQuery::Constraint> constraints = {})
    {
        return ask<ResultTable>(session, ConstrainedElementQuery{kParcels, std::move(candidates), std::move(constraints)});
    }

    SampleStore store;
    RequestHandler handler{store.database()};
    SessionState editor{true, 1, SampleStore::kMap, {}};
    SessionState viewer{true, 2, SampleStore::kMap, {}};
    SessionState stranger{true, 3, SampleStore::kMap, {}};
};

// Each condition is asked as a find (13) and as the one constraint of a
// query over the whole layer (14); both answer the same elements.
TEST_F(AttributeRequests, EveryOperatorOnTextAndNumbers)
{
    struct Case {
        const char* field;
        std::int16_t type;
        std::uint8_t op;
        const char* value1;
        const char* value2;
        Ids ids;
    };
    const Case cases[] = {
        {"NOMBRE", 202, op::kEqual, "ñandú", "", {2}},
        {"nombre", 202, op::kDifferent, "ÑANDÚ", "", {1, 3, 4, 5}},
        {"NOMBRE", 202, op::kEqual, "nandu", "", {}},
        {"NOMBRE", 202, op::kStartingWith, "ñAN", "", {1, 2}},
        {"NOMBRE", 202, op::kEndingWith, "50%", "", {1}},
        {"NOMBRE", 202, op::kContaining, "_", "", {3}},
        {"NOMBRE", 202, op::kLess, "d", "", {4, 5}},
        {"NOMBRE", 202, op::kBetween, "c", "o", {3, 4}},
        {"NOMBRE", 202, op::kEqual, "'; DROP TABLE x; --", "", {5}},
        {"AREA", 5, op::kEqual, "10", "", {1}},
        {"AREA", 5, op::kDifferent, "10", "", {2, 3, 4, 5}},
        {"AREA", 5, op::kLess, "0", "", {3}},
        {"AREA", 5, op::kLessOrEqual, "0", "", {3, 5}},
        {"AREA", 5, op::kGreater, "10", "", {4}},
        {"AREA", 5, op::kGreaterOrEqual, " 10 ", "", {1, 4}},
        {"AREA", 5, op::kBetween, "-1", "2.5", {2, 3, 5}},
        {"AREA", 5, op::kStartingWith, "1", "", {1, 4}},
        {"AREA", 5, op::kEndingWith, "5", "", {2}},
        {"AREA", 5, op::kContaining, "0", "", {1, 4, 5}},
        {"AREA", 5, op::kEqual, "diez", "", {}},
        {"AREA", 5, op::kBetween, "1", "x", {}},
        {"PISO", 2, op::kEqual, "1", "", {}},
    };
    for (const Case& c : cases) {
        const Condition condition{kParcels, c.field, c.type, c.op, c.value1, c.value2};
        const auto found = ask<FindByConditionResult>(viewer, FindByConditionRequest{condition});
        EXPECT_EQ(found.condition, condition);
        Ids ids;
        for (const auto& element : found.elements) {
            ids.push_back(element.id);
        }
        EXPECT_EQ(ids, c.ids) << c.field << " " << int(c.op) << " " << c.value1;
        const ResultTable rows = table(viewer, {}, {{c.field, c.type, c.op, c.value1, c.value2}});
        EXPECT_EQ(rows.ids, c.ids.empty() ? Ids{0} : c.ids) << c.field << " " << int(c.op) << " " << c.value1;
    }
    const auto areas = ask<FindByConditionResult>(viewer, FindByConditionRequest{{kParcels, "AREA", 5, op::kGreaterOrEqual, "10", ""}});
    EXPECT_EQ(areas.elements, (std::vector<FindByConditionResult::Found>{{1, "10"}, {4, "100"}}));
    EXPECT_EQ(table(viewer, {}).rowCount(), 5u) << "the hostile value stayed a value";
}

// Distinct values in order, or the least and greatest; a field of any
// letter case; nothing for an unknown field or method, or a layer the user
// may not see.
TEST_F(AttributeRequests, StatisticsOfAFieldOverTheWholeLayer)
{
    const auto statistics = [&](SessionState& session, const std::string& field, std::int16_t method) {
        const auto reply = ask<FieldStatistics>(session, FieldStatisticsRequest{kParcels, field, method});
        EXPECT_EQ(reply.layer, kParcels);
        EXPECT_EQ(reply.field, field);
        EXPECT_EQ(reply.method, method);
        return reply.values;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(statistics(viewer, "PISOS", 1), (Texts{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(statistics(viewer, "area", 2), (Texts{"-1", "100"}));
    EXPECT_EQ(statistics(viewer, "NOMBRE", 2), (Texts{"'; DROP TABLE x; --", "Ñandú 50%"}));
    EXPECT_EQ(statistics(editor, "NOMBRE", 1).size(), 5u);
    EXPECT_EQ(statistics(viewer, "NOMBRE\" FROM x; --", 1), Texts{});
    EXPECT_EQ(statistics(viewer, "AREA", 3), Texts{});
    EXPECT_EQ(statistics(stranger, "AREA", 2), (Texts{"", ""}));
}

TEST_F(AttributeRequests, TablesAndInformationHoldEveryFieldInOrder)
{
    const ResultTable some = table(viewer, {4, 2, 99, 1}, {{"AREA", 5, op::kGreater, "5", ""}});
    EXPECT_EQ(some.columns, 4);
    EXPECT_EQ(some.ids, (Ids{1, 4}));
    EXPECT_EQ(some.values, (std::vector<std::string>{"Ñandú 50%", "10", "1", "Casa ÁRBOL", "100", "4"}));
    EXPECT_EQ(table(viewer, {4, 2, 99}).ids, (Ids{2, 4})) << "no constraint: the candidates that exist";
    const ResultTable hidden = table(stranger, {});
    EXPECT_EQ(hidden.ids, Ids{0});
    EXPECT_EQ(hidden.values.size(), hidden.valuesPerRow());

    const auto info = ask<ElementInformation>(viewer, ElementInformationRequest{kParcels, 2});
    const std::vector<TypedValue> values = {{202, "ÑANDÚ"}, {5, "2.5"}, {2, "2"}};
    EXPECT_TRUE(info.known);
    EXPECT_EQ(info.values, values);
    EXPECT_EQ(ask<ElementInformation>(viewer, ElementInformationRequest{kParcels, 99}), ElementInformation::none(kParcels, 99));
    EXPECT_EQ(ask<ElementInformation>(stranger, ElementInformationRequest{kParcels, 2}), ElementInformation::none(kParcels, 2));
}

TEST_F(AttributeRequests, RefusedUpdatesChangeNothing)
{
    const ResultTable before = table(viewer, {});
    const std::pair<HandlerOutcome, const char*> refused[] = {
        {send(viewer, MultipleAttributeUpdate{kParcels, {1}, {}, {}, {{"NOMBRE", 202, "x"}}}), "not an editor"},
        {send(editor, MultipleAttributeUpdate{kParcels, {1}, {}, {}, {{"NOMBRE", 202, "x"}, {"NADA", 202, "x"}}}),
         "no field \"NADA\""},
        {send(editor, MultipleAttributeUpdate{kParcels, {1, 2}, {}, {}, {{"NOMBRE", 202, "x"}, {"AREA", 5, "diez"}}}),
         "\"diez\" does not fit"},
        {send(editor, AttributeUpdate{kParcels, 1, 0, 0, 3, 2, "70000"}), "\"70000\" does not fit"},
        {send(editor, AttributeUpdate{kParcels, 1, 0, 0, 4, 2, "1"}), "no field number 4"},
    };
    for (const auto& [outcome, why] : refused) {
        EXPECT_EQ(outcome.action, HandlerOutcome::Action::Drop);
        EXPECT_TRUE(outcome.notable);
        EXPECT_NE(outcome.note.find(why), std::string::npos) << outcome.note;
        EXPECT_FALSE(outcome.announcement);
    }
    EXPECT_EQ(table(viewer, {}), before);
}

// Every element that exists is announced once, with all its values.
TEST_F(AttributeRequests, AppliedUpdatesAnnounceTheNewValues)
{
    const HandlerOutcome many =
        send(editor, MultipleAttributeUpdate{kParcels, {3, 99, 1}, {}, {}, {{"AREA", 5, "7.25"}, {"nombre", 202, "Río"}}});
    const HandlerOutcome one = send(editor, AttributeUpdate{kParcels, 1, 0, 0, 3, 2, "-3"});
    std::vector<ElementChange> announced;
    for (const HandlerOutcome& outcome : {many, one}) {
        ASSERT_TRUE(outcome.announcement) << outcome.note;
        EXPECT_EQ(outcome.announcement->map, SampleStore::kMap);
        DWBUffer messages(*outcome.announcement->messages);
        while (messages.readPosition() <= messages.TamanoBuffer()) {
            const std::int64_t start = messages.readPosition();
            const std::int32_t length = (messages.GetLong(), messages.GetLong());
            messages.GetInteger();
            announced.push_back(ElementChange::decode(messages));
            EXPECT_EQ(messages.readPosition(), start + length);
        }
    }
    ASSERT_EQ(announced.size(), 3u);
    const std::vector<std::pair<std::int32_t, std::vector<std::string>>> expected = {
        {1, {"Río", "7.25", "1"}}, {3, {"Río", "7.25", "3"}}, {1, {"Río", "7.25", "-3"}}};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(announced[i].operation, ElementChange::ValuesChanged);
        EXPECT_EQ(announced[i].layer, kParcels);
        EXPECT_EQ(std::pair(announced[i].element, announced[i].values), expected[i]);
    }
    EXPECT_EQ(table(viewer, {1}).values, expected[2].second);
}

} // namespace
