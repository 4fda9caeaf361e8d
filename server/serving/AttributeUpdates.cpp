#include "serving/AttributeUpdates.h"

#include "protocol/FieldTypes.h"
#include "protocol/FieldValueText.h"
#include "protocol/messages/AttributeUpdate.h"
#include "protocol/messages/ElementChange.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/messages/MultipleAttributeUpdate.h"
#include "serving/Replies.h"

#include <QVariant>

#include <memory>

namespace orbelan::server {

namespace {

using Action = HandlerOutcome::Action;

std::string updateText(const SessionState& session, std::int32_t layer, std::size_t elements)
{
    return "update of " + std::to_string(elements) + " elements of layer " + std::to_string(layer) +
           " by user " + std::to_string(session.user);
}

HandlerOutcome refused(const SessionState& session, std::int32_t layer, std::size_t elements,
                       const std::string& why)
{
    return refuse(Action::Drop, updateText(session, layer, elements) + " refused: " + why);
}

const char* const kNotAnEditor = "the user is not an editor of the layer";

// The value the field's column takes for the text; nothing when it does not
// fit the field's type.
std::optional<QVariant> columnValue(const messages::FieldRecord& field, const std::string& text)
{
    const WireType type = wireTypeOf(field.type);
    if (type == WireType::String || type == WireType::None) {
        return QVariant(QString::fromStdString(text));
    }
    const std::optional<double> number = storedNumber(text, type);
    if (!number) {
        return std::nullopt;
    }
    if (type == WireType::Single || type == WireType::Double) {
        return QVariant(*number);
    }
    return QVariant(static_cast<qlonglong>(*number));
}

// The stored names and column values; nothing, with the reason, when a value
// does not fit its field.
std::optional<std::vector<std::pair<QString, QVariant>>> columnValues(
    const std::vector<std::pair<const messages::FieldRecord*, std::string>>& values,
    std::string& misfit)
{
    std::vector<std::pair<QString, QVariant>> columns;
    for (const auto& [field, text] : values) {
        const auto value = columnValue(*field, text);
        if (!value) {
            misfit = "\"" + text + "\" does not fit the field \"" + field->name + "\" of type " +
                     std::to_string(field->type);
            return std::nullopt;
        }
        columns.emplace_back(QString::fromStdString(field->name), *value);
    }
    return columns;
}

} // namespace

AttributeUpdates::AttributeUpdates(Database& database, MapReader& reader, AttributeReader& rows,
                                   MapWriter& writer)
    : database_(database),
      reader_(reader),
      rows_(rows),
      writer_(writer)
{
}

// The field is given by its position among the layer's fields; the cell the
// client holds the element in is not needed.
HandlerOutcome AttributeUpdates::one(SessionState& session, DWBUffer& message)
{
    const auto request = messages::AttributeUpdate::decode(message);
    if (session.levelOn(request.layer, reader_) < SessionState::kEditor) {
        return refused(session, request.layer, 1, kNotAnEditor);
    }
    const LayerFields fields = reader_.layerFields(request.layer);
    if (request.fieldNumber < 1 ||
        static_cast<std::size_t>(request.fieldNumber) > fields.fields.size()) {
        return refused(session, request.layer, 1,
                       "the layer has no field number " + std::to_string(request.fieldNumber));
    }
    const auto& field = fields.fields[static_cast<std::size_t>(request.fieldNumber - 1)];
    return apply(session, request.layer, {request.element}, {{&field, request.value}}, fields);
}

HandlerOutcome AttributeUpdates::many(SessionState& session, DWBUffer& message)
{
    const auto request = messages::MultipleAttributeUpdate::decode(message);
    if (session.levelOn(request.layer, reader_) < SessionState::kEditor) {
        return refused(session, request.layer, request.elements.size(), kNotAnEditor);
    }
    const LayerFields fields = reader_.layerFields(request.layer);
    NewValues values;
    for (const auto& change : request.fields) {
        const messages::FieldRecord* field = fields.named(change.field);
        if (!field) {
            return refused(session, request.layer, request.elements.size(),
                           "the layer has no field \"" + change.field + "\"");
        }
        values.emplace_back(field, change.value);
    }
    return apply(session, request.layer, request.elements, values, fields);
}

HandlerOutcome AttributeUpdates::apply(const SessionState& session, std::int32_t layer,
                                       const std::vector<std::int32_t>& elements,
                                       const NewValues& values, const LayerFields& fields)
{
    const std::string summary = updateText(session, layer, elements.size());
    std::string misfit;
    const auto columns = columnValues(values, misfit);
    if (!columns) {
        return refused(session, layer, elements.size(), misfit);
    }
    if (columns->empty() || elements.empty()) {
        return refuse(Action::Drop, summary + ": nothing to change");
    }
    std::size_t changed = 0;
    SharedReply messages;
    try {
        database_.transaction([&] {
            writer_.updateAttributes(layer, *columns, elements);
            messages = announcement(layer, elements, fields, changed);
        });
    } catch (const std::exception& error) {
        return refuse(Action::Drop, summary + " failed, nothing changed: " + error.what());
    }
    HandlerOutcome outcome{Action::Drop, nullptr,
                           summary + ": " + std::to_string(changed) + " changed", false};
    if (changed > 0) {
        outcome.announcement = HandlerOutcome::Announcement{session.map, std::move(messages)};
    }
    return outcome;
}

// One values-changed message per element that exists, back to back in one
// buffer that every connection on the map shares.
SharedReply AttributeUpdates::announcement(std::int32_t layer, const std::vector<std::int32_t>& elements,
                                           const LayerFields& fields, std::size_t& changed)
{
    auto bytes = std::make_shared<std::vector<std::uint8_t>>();
    const auto rows = rows_.rows(layer, fields.fields, {elements, {}});
    messages::ElementChange change;
    change.operation = messages::ElementChange::ValuesChanged;
    change.layer = layer;
    for (const AttributeReader::Row& row : rows) {
        change.element = row.id;
        change.values = row.values;
        const DWBUffer message = messages::buildMessage(change);
        bytes->insert(bytes->end(), message.bytes().begin(), message.bytes().end());
    }
    changed = rows.size();
    return bytes;
}

} // namespace orbelan::server
