#include "serving/MapSaving.h"

#include "protocol/messages/SaveMapAnswer.h"
#include "protocol/messages/SaveMapRequest.h"
#include "serving/Replies.h"

#include <exception>

namespace orbelan::server {

namespace {

using messages::SaveMapAnswer;
using Kind = SavedMapWriter::Outcome::Kind;

HandlerOutcome answer(std::int16_t result, const std::string& summary, bool notable)
{
    return {HandlerOutcome::Action::Reply, shareMessage(SaveMapAnswer{result}), summary, notable};
}

} // namespace

MapSaving::MapSaving(Database& database, MapReader& reader) : reader_(reader), writer_(database) {}

HandlerOutcome MapSaving::save(const SessionState& session, DWBUffer& message)
{
    const auto request = messages::SaveMapRequest::decode(message);
    const std::string summary = "save of map " + std::to_string(request.map) + " as \"" + request.definition.name +
                                "\" by user " + std::to_string(request.user);
    try {
        if (request.user != session.user || !reader_.mayOpen(request.user, request.map)) {
            return answer(SaveMapAnswer::kRefused, summary + " refused: the user may not open the map", true);
        }
        const SavedMapWriter::Outcome outcome = writer_.save(request);
        switch (outcome.kind) {
        case Kind::InvalidName:
            return answer(SaveMapAnswer::kInvalidName, summary + ": the name is empty or taken", false);
        case Kind::ForeignLayer:
            return answer(SaveMapAnswer::kRefused, summary + " refused: a layer is not the map's or comes twice",
                          true);
        case Kind::Saved:
            break;
        }
        return answer(SaveMapAnswer::kSaved, summary + ": map " + std::to_string(outcome.map), false);
    } catch (const std::exception& error) {
        return answer(SaveMapAnswer::kUnexpectedError, summary + " failed: " + error.what(), true);
    }
}

} // namespace orbelan::server
