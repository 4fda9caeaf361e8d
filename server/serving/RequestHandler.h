#pragma once

#include "DWBUffer.h"
#include "HandlerOutcome.h"
#include "MapReader.h"
#include "SessionState.h"

#include <cstdint>
#include <functional>
#include <string>

namespace orbelan::server {

// Answers one whole request of a connection from the map store.
//
// Until a connection has passed the access request, any other request closes
// it. Every counted request that can be read gets exactly one reply, an empty
// one when its map, layer, cell or field does not exist or the user may not
// see it. A request shorter than its fields, or with a code the server does
// not answer, is dropped.
class RequestHandler {
public:
    explicit RequestHandler(MapReader& reader);

    HandlerOutcome handle(SessionState& session, DWBUffer& message);

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
    HandlerOutcome layerLevels(const SessionState& session, DWBUffer& message);
    HandlerOutcome cellGeometry(const SessionState& session, DWBUffer& message);
    HandlerOutcome cellValues(const SessionState& session, DWBUffer& message);
    // Runs a store read that fills a reply; a store failure leaves the reply
    // as it was (empty) and is noted.
    void fill(Remarks& remarks, const std::function<void()>& read);

    MapReader& reader_;
};

} // namespace orbelan::server
