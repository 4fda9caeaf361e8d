#pragma once

#include "protocol/messages/FieldRecord.h"

#include <QString>
#include <QVariantList>

#include <cstdint>
#include <optional>
#include <string>

namespace orbelan::server {

// One condition on a stored field as a piece of a WHERE clause over the
// layer's attribute table (aliased a), with the values it binds in order.
// The field's name is quoted into the text; the operands are only bound.
//
// Text fields compare their folded text (FieldText): "=" and "different"
// whole values, "starting with", "ending with" and "containing" literally
// (% and _ are characters like any other), the orderings and "between" by
// character code. Numeric fields compare as numbers, both operands must be
// numbers; the three text operators match the number's text.
struct ConditionClause {
    QString text;
    QVariantList values;

    // Nothing, with the reason, for an unknown operator or a numeric field's
    // operand that is not a number.
    static std::optional<ConditionClause> of(const messages::FieldRecord& field, std::uint8_t op,
                                             const std::string& value1, const std::string& value2,
                                             std::string& refusal);
};

} // namespace orbelan::server
