#include "protocol/messages/MultipleAttributeUpdate.h"

#include "protocol/messages/MessageIO.h"

#include <stdexcept>

namespace orbelan::messages {

namespace {

constexpr std::size_t kLongSize = 4;
constexpr std::size_t kIntegerSize = 2;
constexpr std::size_t kStringMinimumSize = 2;

void putLongs(DWBUffer& message, const std::vector<std::int32_t>& longs)
{
    for (const std::int32_t value : longs) {
        message.PutLong(value);
    }
}

std::vector<std::int32_t> getLongs(DWBUffer& message, std::int32_t count)
{
    return readRecords<std::int32_t>(message, count, kLongSize, [](DWBUffer& m) { return m.GetLong(); });
}

} // namespace

void MultipleAttributeUpdate::encode(DWBUffer& message) const
{
    if (cellI.size() != cellJ.size()) {
        throw std::invalid_argument("an update's cell index lists differ in length");
    }
    message.PutLong(layer);
    message.PutLong(longCount(elements.size()));
    putLongs(message, elements);
    message.PutLong(longCount(cellI.size()));
    putLongs(message, cellI);
    putLongs(message, cellJ);
    message.PutLong(longCount(fields.size()));
    for (const FieldValue& field : fields) {
        message.PutString(field.field);
    }
    for (const FieldValue& field : fields) {
        message.PutInteger(field.fieldType);
    }
    for (const FieldValue& field : fields) {
        message.PutString(field.value);
    }
}

MultipleAttributeUpdate MultipleAttributeUpdate::decode(DWBUffer& message)
{
    MultipleAttributeUpdate update;
    update.layer = message.GetLong();
    update.elements = getLongs(message, message.GetLong());
    const std::int32_t cells = message.GetLong();
    update.cellI = getLongs(message, cells);
    update.cellJ = getLongs(message, cells);
    const std::int32_t fieldCount = message.GetLong();
    update.fields = readRecords<FieldValue>(message, fieldCount, kStringMinimumSize + kIntegerSize + kStringMinimumSize,
                                            [](DWBUffer& m) { return FieldValue{m.GetString(), 0, {}}; });
    for (FieldValue& field : update.fields) {
        field.fieldType = message.GetInteger();
    }
    for (FieldValue& field : update.fields) {
        field.value = message.GetString();
    }
    return update;
}

} // namespace orbelan::messages
