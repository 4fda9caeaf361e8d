#pragma once

#include "protocol/DWBUffer.h"
#include "serving/HandlerOutcome.h"
#include "serving/SessionState.h"
#include "storage/Database.h"
#include "storage/MapReader.h"
#include "storage/SavedMapWriter.h"

namespace orbelan::server {

// Answers a save map request (240) with its result (241): the map as the
// user configured it becomes a new map of that user. Only the user the
// connection passed the access request as, and only for a map that user may
// open, may save (result 2 otherwise); a name that is empty or already one
// of the user's maps gets 1; a store failure 1000, logged, with nothing
// stored.
class MapSaving {
public:
    MapSaving(Database& database, MapReader& reader);

    HandlerOutcome save(const SessionState& session, DWBUffer& message);

private:
    MapReader& reader_;
    SavedMapWriter writer_;
};

} // namespace orbelan::server
