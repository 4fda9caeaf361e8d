#pragma once

#include "protocol/DWBUffer.h"
#include "serving/HandlerOutcome.h"
#include "serving/SessionState.h"
#include "storage/AttributeReader.h"
#include "storage/Database.h"
#include "storage/MapReader.h"
#include "storage/MapWriter.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace orbelan::server {

// Applies the requests that change attribute values, one element's field
// (220) or some fields of many elements (221), each in one transaction, and
// announces every changed element's values (250, values changed) to the
// connections on the map. A request is refused, with nothing changed and
// one log line, when the user is below editor on the layer, a field is
// unknown or a value does not fit its field's type.
class AttributeUpdates {
public:
    AttributeUpdates(Database& database, MapReader& reader, AttributeReader& rows, MapWriter& writer);

    HandlerOutcome one(SessionState& session, DWBUffer& message);
    HandlerOutcome many(SessionState& session, DWBUffer& message);

private:
    using NewValues = std::vector<std::pair<const messages::FieldRecord*, std::string>>;

    HandlerOutcome apply(const SessionState& session, std::int32_t layer,
                         const std::vector<std::int32_t>& elements, const NewValues& values,
                         const LayerFields& fields);
    SharedReply announcement(std::int32_t layer, const std::vector<std::int32_t>& elements,
                             const LayerFields& fields, std::size_t& changed);

    Database& database_;
    MapReader& reader_;
    AttributeReader& rows_;
    MapWriter& writer_;
};

} // namespace orbelan::server
