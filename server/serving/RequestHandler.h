#pragma once

#include "serving/AttributeQueries.h"
#include "serving/AttributeUpdates.h"
#include "serving/CellReplyCache.h"
#include "protocol/DWBUffer.h"
#include "login/LoginPolicy.h"
#include "serving/HandlerOutcome.h"
#include "serving/LoginService.h"
#include "serving/MapSaving.h"
#include "serving/Remarks.h"
#include "serving/SessionState.h"
#include "serving/SharedReply.h"
#include "storage/AttributeReader.h"
#include "storage/Database.h"
#include "storage/MapReader.h"
#include "storage/MapWriter.h"

#include <cstdint>
#include <string>
#include <unordered_map>

namespace orbelan::server {

// Answers one whole request of a connection from the map store, and applies
// the ones that change it.
//
// Until a connection has passed the access request, any other request but a
// login closes it. Unless the policy trusts the user ids, the access request
// passes only for a user who logged in from the connection's address. Every counted request that can be read gets exactly one reply, an empty
// one when its map, layer, cell, element or field does not exist or the user may not
// see it. A request shorter than its fields, or with a code the server does
// not answer, is dropped.
class RequestHandler {
public:
    explicit RequestHandler(Database& database,
                            std::size_t cacheBudget = CellReplyCache::kDefaultBudget,
                            const LoginPolicy& policy = LoginPolicy::trustingUserIds());

    HandlerOutcome handle(SessionState& session, DWBUffer& message);
    // The memory the cached cell replies take, as the cache counts it.
    std::size_t cachedBytes() const { return cells_.bytes(); }
    LoginService& logins() { return logins_; }

private:
    HandlerOutcome dispatch(SessionState& session, std::int16_t code, DWBUffer& message);
    HandlerOutcome access(SessionState& session, DWBUffer& message);
    HandlerOutcome mapDefinition(const SessionState& session, DWBUffer& message);
    HandlerOutcome layerLevels(SessionState& session, DWBUffer& message);
    HandlerOutcome cellGeometry(SessionState& session, DWBUffer& message);
    HandlerOutcome cellValues(SessionState& session, DWBUffer& message);
    HandlerOutcome elementBox(SessionState& session, DWBUffer& message);
    // Nothing for an unknown map.
    SharedReply definitionReply(std::int32_t map);
    // The cell's reply from the cache, or built from the store and cached;
    // nothing for a cell outside the layer's grid.
    SharedReply cellReply(std::int32_t layer, std::int32_t row, std::int32_t column,
                          std::size_t& elements);
    const MapReader::GridBounds& gridOf(std::int32_t layer);

    MapReader reader_;
    MapWriter writer_;
    AttributeReader rows_;
    AttributeQueries queries_;
    AttributeUpdates updates_;
    CellReplyCache cells_;
    LoginService logins_;
    MapSaving saving_;
    // Map definition replies already built, by map code (the definitions do
    // not change while the server runs).
    std::unordered_map<std::int32_t, SharedReply> definitions_;
    // The grid of each layer some user may see, by layer id (so no more
    // entries than the store has layers).
    std::unordered_map<std::int32_t, MapReader::GridBounds> grids_;
};

} // namespace orbelan::server
