#include "protocol/messages/LoginAnswer.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

namespace {

// A code and an empty name.
constexpr std::size_t kMapMinimumSize = 4 + 2;

} // namespace

void LoginAnswer::encode(DWBUffer& message) const
{
    message.PutLong(userId);
    if (!accepted()) {
        return;
    }
    message.PutInteger(clientVersion.major);
    message.PutInteger(clientVersion.minor);
    message.PutInteger(clientVersion.revision);
    message.PutInteger(shortCount(maps.size()));
    for (const Map& map : maps) {
        message.PutLong(map.code);
        message.PutString(map.name);
    }
}

LoginAnswer LoginAnswer::decode(DWBUffer& message)
{
    LoginAnswer answer;
    answer.userId = message.GetLong();
    if (!answer.accepted()) {
        return answer;
    }
    answer.clientVersion.major = message.GetInteger();
    answer.clientVersion.minor = message.GetInteger();
    answer.clientVersion.revision = message.GetInteger();
    answer.maps = readRecords<Map>(message, message.GetInteger(), kMapMinimumSize, [](DWBUffer& m) {
        const std::int32_t code = m.GetLong();
        return Map{code, m.GetString()};
    });
    return answer;
}

} // namespace orbelan::messages
