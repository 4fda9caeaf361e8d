#include "protocol/messages/TypedValue.h"

#include "protocol/FieldTypes.h"
#include "protocol/FieldValueText.h"

namespace orbelan::messages {

void putTypedValue(DWBUffer& message, std::int16_t fieldType, std::string_view text)
{
    const WireType type = wireTypeOf(fieldType);
    if (type == WireType::String) {
        message.PutString(text);
        return;
    }
    const double number = storedNumber(text, type).value_or(0.0);
    switch (type) {
    case WireType::Integer:
        message.PutInteger(static_cast<std::int16_t>(number));
        break;
    case WireType::Long:
        message.PutLong(static_cast<std::int32_t>(number));
        break;
    case WireType::Single:
        message.PutSingle(static_cast<float>(number));
        break;
    case WireType::Double:
        message.PutDouble(number);
        break;
    default:
        break;
    }
}

std::string getTypedValue(DWBUffer& message, std::int16_t fieldType)
{
    const WireType type = wireTypeOf(fieldType);
    switch (type) {
    case WireType::Integer:
        return numberText(message.GetInteger(), type);
    case WireType::Long:
        return numberText(message.GetLong(), type);
    case WireType::Single:
        return numberText(message.GetSingle(), type);
    case WireType::Double:
        return numberText(message.GetDouble(), type);
    case WireType::String:
        return message.GetString();
    default:
        return {};
    }
}

} // namespace orbelan::messages
