#include "protocol/messages/FindByConditionResult.h"

#include "protocol/messages/MessageIO.h"
#include "protocol/messages/TypedValue.h"

namespace orbelan::messages {

namespace {

constexpr std::size_t kIdSize = 4;

} // namespace

void FindByConditionResult::encode(DWBUffer& message) const
{
    condition.encode(message);
    message.PutLong(longCount(elements.size()));
    for (const Found& found : elements) {
        message.PutLong(found.id);
        putTypedValue(message, condition.fieldType, found.value);
    }
}

FindByConditionResult FindByConditionResult::decode(DWBUffer& message)
{
    FindByConditionResult result;
    result.condition = Condition::decode(message);
    const std::int16_t type = result.condition.fieldType;
    result.elements = readRecords<Found>(message, message.GetLong(), kIdSize, [type](DWBUffer& m) {
        const std::int32_t id = m.GetLong();
        return Found{id, getTypedValue(m, type)};
    });
    return result;
}

} // namespace orbelan::messages
