#pragma once

#include "protocol/messages/FieldRecord.h"
#include "storage/Database.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::server {

// What a thematic classification needs from one column of a layer's
// attribute table, over the whole layer: its distinct values, or its least
// and greatest value, as the texts of AttributeTable::text. Elements
// without a value (NULL) are left out.
class FieldSummary {
public:
    explicit FieldSummary(Database& database);

    // In ascending order, at most `limit` of them.
    std::vector<std::string> distinctValues(std::int32_t layer, const messages::FieldRecord& field,
                                            std::size_t limit);
    // The minimum and the maximum; two empty texts for a layer without values.
    std::vector<std::string> range(std::int32_t layer, const messages::FieldRecord& field);

private:
    Database& database_;
};

} // namespace orbelan::server
