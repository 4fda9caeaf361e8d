#include "session/DirectionText.h"

#include "protocol/FieldValueText.h"
#include "protocol/WireReadError.h"

namespace orbelan {

std::int16_t directionOfText(const std::string& text, const DWBUffer& message)
{
    if (text.empty()) {
        return 0;
    }
    const std::optional<double> direction = storedNumber(text, WireType::Integer);
    if (!direction) {
        throw WireReadError(message.readPosition(), 0, message.commandCode(),
                            "direction \"" + text + "\" is not an Integer");
    }
    return static_cast<std::int16_t>(*direction);
}

} // namespace orbelan
