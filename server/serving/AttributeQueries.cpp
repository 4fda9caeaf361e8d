#include "serving/AttributeQueries.h"

#include "protocol/messages/ConstrainedElementQuery.h"
#include "protocol/messages/ElementInformation.h"
#include "protocol/messages/ElementInformationRequest.h"
#include "protocol/messages/FieldStatistics.h"
#include "protocol/messages/FieldStatisticsRequest.h"
#include "protocol/messages/FindByConditionRequest.h"
#include "protocol/messages/FindByConditionResult.h"
#include "protocol/messages/ResultTable.h"
#include "serving/Replies.h"

#include <algorithm>
#include <iterator>

namespace orbelan::server {

namespace {

// A query's constraints are composed one by one by hand; a request with more
// is not a user's.
constexpr std::size_t kMaximumConstraints = 100;
// The reply counts distinct values in an Integer.
constexpr std::size_t kMaximumDistinctValues = 32767;

std::string layerText(std::int32_t layer)
{
    return "layer " + std::to_string(layer);
}

// The clause of a condition on a field of the layer; nothing, with the
// reason noted, for an unknown field or a condition that cannot hold.
std::optional<ConditionClause> clauseOf(const LayerFields& fields, const std::string& field,
                                        std::uint8_t op, const std::string& value1,
                                        const std::string& value2, Remarks& remarks)
{
    const messages::FieldRecord* stored = fields.named(field);
    if (!stored) {
        remarks.add("; no field \"" + field + "\"");
        return std::nullopt;
    }
    std::string refusal;
    auto clause = ConditionClause::of(*stored, op, value1, value2, refusal);
    if (!clause) {
        remarks.add("; " + refusal + ": no element");
    }
    return clause;
}

// The candidates (none: the whole layer) and the clause of every constraint;
// nothing, with the reason noted, when a constraint cannot be put as one.
std::optional<AttributeReader::Filter> filterOf(const LayerFields& fields,
                                                const messages::ConstrainedElementQuery& request,
                                                Remarks& remarks)
{
    if (request.constraints.size() > kMaximumConstraints) {
        remarks.add("; more than " + std::to_string(kMaximumConstraints) + " constraints");
        return std::nullopt;
    }
    AttributeReader::Filter filter;
    if (!request.candidates.empty()) {
        filter.ids = request.candidates;
    }
    for (const auto& constraint : request.constraints) {
        auto clause = clauseOf(fields, constraint.field, constraint.op, constraint.value1,
                               constraint.value2, remarks);
        if (!clause) {
            return std::nullopt;
        }
        filter.conditions.push_back(std::move(*clause));
    }
    return filter;
}

} // namespace

AttributeQueries::AttributeQueries(MapReader& reader, AttributeReader& rows, FieldSummary& summary)
    : reader_(reader),
      rows_(rows),
      summary_(summary)
{
}

std::optional<LayerFields> AttributeQueries::visibleFields(SessionState& session, std::int32_t layer,
                                                          Remarks& remarks)
{
    if (session.levelOn(layer, reader_) < SessionState::kViewer) {
        remarks.add("; no access to the layer");
        return std::nullopt;
    }
    return reader_.layerFields(layer);
}

HandlerOutcome AttributeQueries::information(SessionState& session, DWBUffer& message)
{
    const auto request = messages::ElementInformationRequest::decode(message);
    auto reply = messages::ElementInformation::none(request.layer, request.element);
    Remarks remarks;
    remarks.attempt([&] {
        const auto fields = visibleFields(session, request.layer, remarks);
        if (!fields) {
            return;
        }
        const auto rows = rows_.rows(request.layer, fields->fields,
                                     {std::vector<std::int32_t>{request.element}, {}});
        if (rows.empty()) {
            remarks.add("; no such element");
            return;
        }
        reply.known = true;
        for (std::size_t i = 0; i < fields->fields.size(); ++i) {
            reply.values.push_back({fields->fields[i].type, rows.front().values[i]});
        }
    });
    return replyWith(reply,
                     "information of element " + std::to_string(request.element) + " of " +
                         layerText(request.layer),
                     remarks);
}

HandlerOutcome AttributeQueries::statistics(SessionState& session, DWBUffer& message)
{
    namespace method = messages::statisticsmethod;
    const auto request = messages::FieldStatisticsRequest::decode(message);
    messages::FieldStatistics reply{request.layer, request.field, request.method, {}};
    Remarks remarks;
    remarks.attempt([&] {
        const auto fields = visibleFields(session, request.layer, remarks);
        const messages::FieldRecord* field = fields ? fields->named(request.field) : nullptr;
        if (fields && !field) {
            remarks.add("; no field \"" + request.field + "\"");
        }
        if (!field) {
            return;
        }
        if (request.method == method::kDistinctValues) {
            reply.values = summary_.distinctValues(request.layer, *field, kMaximumDistinctValues);
        } else if (request.method == method::kMinimumAndMaximum) {
            reply.values = summary_.range(request.layer, *field);
        } else {
            remarks.add("; no statistics method " + std::to_string(request.method));
        }
    });
    return replyWith(reply,
                     "statistics " + std::to_string(request.method) + " of \"" + request.field + "\" of " +
                         layerText(request.layer) + ": " + std::to_string(reply.values.size()) + " values",
                     remarks);
}

HandlerOutcome AttributeQueries::find(SessionState& session, DWBUffer& message)
{
    const auto request = messages::FindByConditionRequest::decode(message);
    const messages::Condition& condition = request.condition;
    messages::FindByConditionResult reply{condition, {}};
    Remarks remarks;
    remarks.attempt([&] {
        const auto fields = visibleFields(session, condition.layer, remarks);
        if (!fields) {
            return;
        }
        const auto clause = clauseOf(*fields, condition.field, condition.op, condition.value1,
                                     condition.value2, remarks);
        if (!clause) {
            return;
        }
        for (auto& row : rows_.rows(condition.layer, {*fields->named(condition.field)},
                                    {std::nullopt, {*clause}})) {
            reply.elements.push_back({row.id, std::move(row.values.front())});
        }
    });
    return replyWith(reply,
                     "find on \"" + condition.field + "\" of " + layerText(condition.layer) +
                         " (operator " + std::to_string(condition.op) + "): " +
                         std::to_string(reply.elements.size()) + " elements",
                     remarks);
}

// Nothing found is one row of id 0, which the viewer takes for "none".
HandlerOutcome AttributeQueries::constrained(SessionState& session, DWBUffer& message)
{
    const auto request = messages::ConstrainedElementQuery::decode(message);
    messages::ResultTable reply;
    reply.layer = request.layer;
    Remarks remarks;
    remarks.attempt([&] {
        const auto fields = visibleFields(session, request.layer, remarks);
        if (!fields) {
            return;
        }
        const auto filter = filterOf(*fields, request, remarks);
        if (!filter) {
            return;
        }
        reply.columns = messages::shortCount(fields->fields.size() + 1);
        for (auto& row : rows_.rows(request.layer, fields->fields, *filter)) {
            reply.ids.push_back(row.id);
            std::move(row.values.begin(), row.values.end(), std::back_inserter(reply.values));
        }
    });
    const std::size_t found = reply.ids.size();
    if (found == 0) {
        reply.ids = {0};
        reply.values.assign(reply.valuesPerRow(), {});
    }
    return replyWith(reply,
                     "query of " + std::to_string(request.candidates.size()) + " candidates and " +
                         std::to_string(request.constraints.size()) + " constraints on " +
                         layerText(request.layer) + ": " + std::to_string(found) + " elements",
                     remarks);
}

} // namespace orbelan::server
