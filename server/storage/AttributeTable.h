#pragma once

#include "protocol/messages/FieldRecord.h"

#include <QString>
#include <QVariant>

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan::server {

// The typed attribute table of one layer: one row per element (key
// element_id) and one real SQL column per field, so that conditions and
// statistics on attributes are plain SQL. Column names come from the
// layer's stored field list only, always quoted; never from a request.
class AttributeTable {
public:
    static QString name(std::int32_t layer);
    // An identifier in double quotes, inner double quotes doubled.
    static QString quoted(const QString& identifier);
    // The SQL column type for an ADO type code.
    static QString columnType(std::int16_t adoType);
    static QString createStatement(std::int32_t layer,
                                   const std::vector<messages::FieldRecord>& fields);
    static QString insertStatement(std::int32_t layer,
                                   const std::vector<messages::FieldRecord>& fields);
    // The ids as a JSON array, for json_each.
    static QString idList(const std::vector<std::int32_t>& ids);
    // A value as the text that travels in the cell value replies: integers in
    // decimal, reals in their shortest exact form, NULL as the empty text.
    static std::string text(const QVariant& value);
};

} // namespace orbelan::server
