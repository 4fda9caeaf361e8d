#pragma once

#include <QString>

#include <cstdint>

namespace orbelan {

// One condition of a multiple selection on a field of its target layer.
// The field's type is looked up in the layer when the query is sent.
struct Constraint {
    QString field;
    // A condition operator code (protocol/messages/Condition.h).
    std::int16_t op = 0;
    QString value1;
    // Used by "between" only.
    QString value2;
    bool operator==(const Constraint&) const = default;
};

} // namespace orbelan
