#pragma once

#include "protocol/DWBUffer.h"
#include "serving/HandlerOutcome.h"
#include "serving/Remarks.h"
#include "serving/SessionState.h"
#include "storage/AttributeReader.h"
#include "storage/FieldSummary.h"
#include "storage/MapReader.h"

#include <cstdint>
#include <optional>

namespace orbelan::server {

// Answers the requests that read attribute values: an element's values (4),
// the distinct values or the range of a field (6), the elements that meet a
// condition (13) and the candidates that meet every constraint (14). A layer the user has level 0 on is answered as a layer
// without elements.
class AttributeQueries {
public:
    AttributeQueries(MapReader& reader, AttributeReader& rows, FieldSummary& summary);

    HandlerOutcome information(SessionState& session, DWBUffer& message);
    // An unknown field or method gets the request echoed with no values.
    HandlerOutcome statistics(SessionState& session, DWBUffer& message);
    HandlerOutcome find(SessionState& session, DWBUffer& message);
    HandlerOutcome constrained(SessionState& session, DWBUffer& message);

private:
    // The layer's fields when the user may see it; else nothing, noted.
    std::optional<LayerFields> visibleFields(SessionState& session, std::int32_t layer,
                                             Remarks& remarks);

    MapReader& reader_;
    AttributeReader& rows_;
    FieldSummary& summary_;
};

} // namespace orbelan::server
