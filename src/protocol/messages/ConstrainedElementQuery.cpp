#include "protocol/messages/ConstrainedElementQuery.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

namespace {

constexpr std::size_t kIdSize = 4;
// Field name, type, operator and two values.
constexpr std::size_t kConstraintMinimumSize = 2 + 2 + 1 + 2 + 2;

} // namespace

void ConstrainedElementQuery::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(longCount(candidates.size()));
    for (const std::int32_t id : candidates) {
        message.PutLong(id);
    }
    message.PutInteger(shortCount(constraints.size()));
    for (const Constraint& constraint : constraints) {
        message.PutString(constraint.field);
        message.PutInteger(constraint.fieldType);
        message.PutByte(constraint.op);
        message.PutString(constraint.value1);
        message.PutString(constraint.value2);
    }
}

ConstrainedElementQuery ConstrainedElementQuery::decode(DWBUffer& message)
{
    ConstrainedElementQuery query;
    query.layer = message.GetLong();
    query.candidates = readRecords<std::int32_t>(message, message.GetLong(), kIdSize,
                                                 [](DWBUffer& m) { return m.GetLong(); });
    query.constraints = readRecords<Constraint>(message, message.GetInteger(), kConstraintMinimumSize,
                                                [](DWBUffer& m) {
                                                    Constraint constraint;
                                                    constraint.field = m.GetString();
                                                    constraint.fieldType = m.GetInteger();
                                                    constraint.op = m.GetByte();
                                                    constraint.value1 = m.GetString();
                                                    constraint.value2 = m.GetString();
                                                    return constraint;
                                                });
    return query;
}

} // namespace orbelan::messages
