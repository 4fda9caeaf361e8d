#include "serving/RequestHandler.h"

#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/CellFieldValuesBuilder.h"
#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/CommandCatalogue.h"
#include "protocol/messages/ElementBoundingBox.h"
#include "protocol/messages/ElementBoundingBoxRequest.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "protocol/messages/MessageIO.h"
#include "serving/Replies.h"
#include "protocol/WireReadError.h"

#include <QString>

#include <memory>
#include <vector>

namespace orbelan::server {

namespace {

using Action = HandlerOutcome::Action;

messages::CellGeometry cellOf(std::int32_t layer, std::int32_t row, std::int32_t column)
{
    messages::CellGeometry cell;
    cell.layer = layer;
    cell.row = row;
    cell.column = column;
    return cell;
}

std::string commandName(std::int16_t code)
{
    const CommandInfo* info = findCommand(code);
    return info ? std::string(info->name) + " (" + std::to_string(code) + ")"
                : "command " + std::to_string(code);
}

std::string cellText(std::int32_t layer, std::int32_t row, std::int32_t column)
{
    return "layer " + std::to_string(layer) + " cell (" + std::to_string(row) + ", " +
           std::to_string(column) + ")";
}

} // namespace

RequestHandler::RequestHandler(Database& database, std::size_t cacheBudget,
                               const LoginPolicy& policy)
    : reader_(database),
      writer_(database),
      rows_(database),
      queries_(reader_, rows_),
      updates_(database, reader_, rows_, writer_),
      cells_(cacheBudget),
      logins_(database, policy),
      saving_(database, reader_)
{
}

HandlerOutcome RequestHandler::handle(SessionState& session, DWBUffer& message)
{
    const std::int16_t code = codeNumber(messages::readHeader(message));
    // The login control's request comes on a connection of its own, never
    // preceded by an access request.
    const bool mayComeFirst =
        code == codeNumber(CommandCode::AccessRequest) || code == codeNumber(CommandCode::Login);
    if (!session.passed && !mayComeFirst) {
        return refuse(Action::Close, commandName(code) + " before the access request");
    }
    try {
        return dispatch(session, code, message);
    } catch (const WireReadError& error) {
        return refuse(Action::Drop, "malformed " + commandName(code) + ": " + error.what());
    } catch (const std::exception& error) {
        // A reply that cannot be written (a stored text longer than a wire
        // string may be, say).
        return refuse(Action::Drop, "cannot answer " + commandName(code) + ": " + error.what());
    }
}

HandlerOutcome RequestHandler::dispatch(SessionState& session, std::int16_t code, DWBUffer& message)
{
    switch (static_cast<CommandCode>(code)) {
    case CommandCode::AccessRequest:
        return access(session, message);
    case CommandCode::Login:
        return logins_.login(session, message);
    case CommandCode::ChangePassword:
        return logins_.changePassword(session, message);
    case CommandCode::MapDefinitionRequest:
        return mapDefinition(session, message);
    case CommandCode::LayerAccessLevelsRequest:
        return layerLevels(session, message);
    case CommandCode::CellGeometryRequest:
        return cellGeometry(session, message);
    case CommandCode::CellFieldValuesRequest:
        return cellValues(session, message);
    case CommandCode::ElementBoundingBoxRequest:
        return elementBox(session, message);
    case CommandCode::ElementInformationRequest:
        return queries_.information(session, message);
    case CommandCode::FindByCondition:
        return queries_.find(session, message);
    case CommandCode::ConstrainedElementQuery:
        return queries_.constrained(session, message);
    case CommandCode::AttributeUpdate:
        return updates_.one(session, message);
    case CommandCode::MultipleAttributeUpdate:
        return updates_.many(session, message);
    case CommandCode::SaveMap:
        return saving_.save(session, message);
    default:
        break;
    }
    const CommandInfo* info = findCommand(code);
    if (info && info->direction == Direction::ClientToServer) {
        return refuse(Action::Drop, commandName(code) + " is not served by this server");
    }
    return refuse(Action::Drop, "unknown " + commandName(code));
}

HandlerOutcome RequestHandler::access(SessionState& session, DWBUffer& message)
{
    const auto request = messages::AccessRequest::decode(message);
    Remarks remarks;
    const auto gate = logins_.refusesAccess(session.address, request.user);
    if (gate) {
        session.passed = false;
        remarks.add("; " + *gate);
    } else {
        remarks.attempt([&] { session.passed = reader_.mayOpen(request.user, request.map); });
    }
    session.levels.reset();
    session.user = session.passed ? request.user : 0;
    session.map = session.passed ? request.map : 0;
    if (!session.passed) {
        remarks.add("; refused");
    }
    const messages::AccessAnswer answer{session.passed ? messages::AccessAnswer::kGranted
                                                       : messages::AccessAnswer::kRefused};
    return replyWith(answer,
                     "access of user " + std::to_string(request.user) + " to map " +
                         std::to_string(request.map),
                     remarks);
}

HandlerOutcome RequestHandler::mapDefinition(const SessionState& session, DWBUffer& message)
{
    const auto request = messages::MapDefinitionRequest::decode(message);
    Remarks remarks;
    SharedReply reply;
    remarks.attempt([&] {
        if (!reader_.mayOpen(session.user, request.map)) {
            remarks.add("; not open to this user");
            return;
        }
        reply = definitionReply(request.map);
    });
    if (!reply) {
        reply = shareMessage(messages::MapDefinition{});
    }
    return {Action::Reply, std::move(reply),
            "definition of map " + std::to_string(request.map) + remarks.text, remarks.notable};
}

// Built once per map.
SharedReply RequestHandler::definitionReply(std::int32_t map)
{
    if (const auto cached = definitions_.find(map); cached != definitions_.end()) {
        return cached->second;
    }
    const auto definition = reader_.mapDefinition(map);
    if (!definition) {
        return nullptr;
    }
    SharedReply reply = shareMessage(*definition);
    definitions_.emplace(map, reply);
    return reply;
}

HandlerOutcome RequestHandler::layerLevels(SessionState& session, DWBUffer& message)
{
    const auto request = messages::LayerAccessLevelsRequest::decode(message);
    messages::LayerAccessLevels reply;
    Remarks remarks;
    remarks.attempt([&] {
        for (const std::int32_t layer : request.layers) {
            reply.levels.push_back({layer, session.levelOn(layer, reader_)});
        }
    });
    return replyWith(reply, "access levels of " + std::to_string(reply.levels.size()) + " layers",
                     remarks);
}

HandlerOutcome RequestHandler::cellGeometry(SessionState& session, DWBUffer& message)
{
    const auto request = messages::CellGeometryRequest::decode(message);
    Remarks remarks;
    std::size_t elements = 0;
    SharedReply reply;
    remarks.attempt([&] {
        if (session.levelOn(request.layer, reader_) == 0) {
            remarks.add("; no access to the layer");
            return;
        }
        reply = cellReply(request.layer, request.row, request.column, elements);
    });
    if (!reply) {
        reply = shareMessage(cellOf(request.layer, request.row, request.column));
    }
    return {Action::Reply, std::move(reply),
            "geometry of " + cellText(request.layer, request.row, request.column) + ": " +
                std::to_string(elements) + " elements" + remarks.text,
            remarks.notable};
}

// Cells outside the grid hold nothing and are not cached, so that a client
// asking for one distinct far-away cell after another cannot crowd out the
// cells that are drawn.
SharedReply RequestHandler::cellReply(std::int32_t layer, std::int32_t row, std::int32_t column,
                                      std::size_t& elements)
{
    if (const CellReplyCache::Entry* cached = cells_.find(layer, row, column)) {
        elements = cached->elements;
        return cached->reply;
    }
    if (!gridOf(layer).holds(row, column)) {
        return nullptr;
    }
    messages::CellGeometry geometry = cellOf(layer, row, column);
    geometry.elements = reader_.cellElements(layer, row, column);
    geometry.chooseCoordinates();
    elements = geometry.elements.size();
    SharedReply reply = shareMessage(geometry);
    cells_.store(layer, row, column, {reply, elements});
    return reply;
}

const MapReader::GridBounds& RequestHandler::gridOf(std::int32_t layer)
{
    auto known = grids_.find(layer);
    if (known == grids_.end()) {
        known = grids_.emplace(layer, reader_.gridBounds(layer)).first;
    }
    return known->second;
}

HandlerOutcome RequestHandler::cellValues(SessionState& session, DWBUffer& message)
{
    const auto request = messages::CellFieldValuesRequest::decode(message);
    messages::CellFieldValuesBuilder builder(request.layer, request.field);
    Remarks remarks;
    remarks.attempt([&] {
        const auto field =
            reader_.storedFieldName(request.layer, QString::fromStdString(request.field));
        if (!field || session.levelOn(request.layer, reader_) == 0) {
            remarks.add("; no such field or no access to the layer");
            return;
        }
        for (const auto& [element, value] :
             reader_.cellValues(request.layer, request.row, request.column, *field)) {
            if (element != 0) {
                builder.add(element, value);
            }
        }
    });
    const messages::CellFieldValues reply = builder.take();
    return replyWith(reply,
                     "values of \"" + request.field + "\" in " +
                         cellText(request.layer, request.row, request.column) + ": " +
                         std::to_string(reply.references.size()) + " elements",
                     remarks);
}

HandlerOutcome RequestHandler::elementBox(SessionState& session, DWBUffer& message)
{
    const auto request = messages::ElementBoundingBoxRequest::decode(message);
    auto reply = messages::ElementBoundingBox::none(request.layer, request.element);
    Remarks remarks;
    remarks.attempt([&] {
        const auto box = session.levelOn(request.layer, reader_) == 0
                             ? std::nullopt
                             : reader_.elementBox(request.layer, request.element);
        if (!box) {
            remarks.add("; no such element or no access to the layer");
            return;
        }
        reply = *box;
    });
    return replyWith(reply,
                     "box of element " + std::to_string(request.element) + " of layer " +
                         std::to_string(request.layer),
                     remarks);
}

} // namespace orbelan::server
