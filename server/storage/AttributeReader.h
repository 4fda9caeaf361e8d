#pragma once

#include "protocol/messages/FieldRecord.h"
#include "storage/ConditionClause.h"
#include "storage/Database.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orbelan::server {

// Reads rows of a layer's attribute table: the elements that meet every
// condition, of all of them or of a list of ids, by id, each with the texts
// of the asked columns (AttributeTable::text).
class AttributeReader {
public:
    struct Row {
        std::int32_t id = 0;
        std::vector<std::string> values;
    };
    struct Filter {
        // Nothing: every element of the layer.
        std::optional<std::vector<std::int32_t>> ids;
        std::vector<ConditionClause> conditions;
    };

    explicit AttributeReader(Database& database);

    std::vector<Row> rows(std::int32_t layer, const std::vector<messages::FieldRecord>& columns,
                          const Filter& filter);

private:
    Database& database_;
};

} // namespace orbelan::server
