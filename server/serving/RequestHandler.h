#pragma once

#include "serving/CellReplyCache.h"
#include "protocol/DWBUffer.h"
#include "serving/HandlerOutcome.h"
#include "serving/SessionState.h"
#include "serving/SharedReply.h"
#include "storage/MapReader.h"

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>

namespace orbelan::server {

// Answers one whole request of a connection from the map store.
//
// Until a connection has passed the access request, any other request but a
// login closes it. Every counted request that can be read gets exactly one reply, an empty
// one when its map, layer, cell, element or field does not exist or the user may not
// see it. A request shorter than its fields, or with a code the server does
// not answer, is dropped.
class RequestHandler {
public:
    explicit RequestHandler(MapReader& reader,
                            std::size_t cacheBudget = CellReplyCache::kDefaultBudget);

    HandlerOutcome handle(SessionState& session, DWBUffer& message);
    // The memory the cached cell replies take, as the cache counts it.
    std::size_t cachedBytes() const { return cells_.bytes(); }

    // What went amiss while answering, for the log.
    struct Remarks {
        std::string text;
        bool notable = false;
        void add(const std::string& remark)
        {
            text += remark;
            notable = true;
        }
    };

private:
    HandlerOutcome dispatch(SessionState& session, std::int16_t code, DWBUffer& message);
    HandlerOutcome access(SessionState& session, DWBUffer& message);
    HandlerOutcome mapDefinition(const SessionState& session, DWBUffer& message);
    HandlerOutcome layerLevels(SessionState& session, DWBUffer& message);
    HandlerOutcome cellGeometry(SessionState& session, DWBUffer& message);
    HandlerOutcome cellValues(SessionState& session, DWBUffer& message);
    HandlerOutcome elementBox(SessionState& session, DWBUffer& message);
    // The connection's user's level on the layer, remembered per connection.
    std::int16_t levelOf(SessionState& session, std::int32_t layer);
    // Nothing for an unknown map.
    SharedReply definitionReply(std::int32_t map);
    // The cell's reply from the cache, or built from the store and cached;
    // nothing for a cell outside the layer's grid.
    SharedReply cellReply(std::int32_t layer, std::int32_t row, std::int32_t column,
                          std::size_t& elements);
    const MapReader::GridBounds& gridOf(std::int32_t layer);
    // Runs a store read that fills a reply; a store failure leaves the reply
    // as it was (empty) and is noted.
    void fill(Remarks& remarks, const std::function<void()>& read);

    MapReader& reader_;
    CellReplyCache cells_;
    // Map definition replies already built, by map code (the definitions do
    // not change while the server runs).
    std::unordered_map<std::int32_t, SharedReply> definitions_;
    // The grid of each layer some user may see, by layer id (so no more
    // entries than the store has layers).
    std::unordered_map<std::int32_t, MapReader::GridBounds> grids_;
};

} // namespace orbelan::server
