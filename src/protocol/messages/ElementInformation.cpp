#include "protocol/messages/ElementInformation.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

namespace {

constexpr std::int16_t kNoInformation = -1;
constexpr std::size_t kTypeCodeSize = 2;

} // namespace

void ElementInformation::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(element);
    if (!known) {
        message.PutInteger(kNoInformation);
        return;
    }
    message.PutInteger(shortCount(values.size()));
    for (const TypedValue& value : values) {
        message.PutInteger(value.type);
        putTypedValue(message, value.type, value.text);
    }
}

ElementInformation ElementInformation::decode(DWBUffer& message)
{
    ElementInformation information;
    information.layer = message.GetLong();
    information.element = message.GetLong();
    const std::int16_t count = message.GetInteger();
    information.known = count >= 0;
    information.values = readRecords<TypedValue>(message, count, kTypeCodeSize, [](DWBUffer& m) {
        const std::int16_t type = m.GetInteger();
        return TypedValue{type, getTypedValue(m, type)};
    });
    return information;
}

} // namespace orbelan::messages
