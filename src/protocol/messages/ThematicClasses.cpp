#include "protocol/messages/ThematicClasses.h"

#include "protocol/messages/MessageIO.h"

#include <utility>

namespace orbelan::messages {

void ThematicClasses::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutInteger(shortCount(classes.size()));
    for (const ThematicClassRecord& themeClass : classes) {
        themeClass.encode(message);
    }
}

ThematicClasses ThematicClasses::decode(DWBUffer& message)
{
    ThematicClasses reply;
    std::vector<ThematicClassRecord> classes;
    decodeEach(message, reply, [&classes](ThematicClassRecord&& record) { classes.push_back(std::move(record)); });
    reply.classes = std::move(classes);
    return reply;
}

void ThematicClasses::decodeEach(DWBUffer& message, ThematicClasses& reply,
                                 const std::function<void(ThematicClassRecord&&)>& onClass)
{
    reply.layer = message.GetLong();
    forEachRecord(message, message.GetInteger(), ThematicClassRecord::decode, onClass);
}

} // namespace orbelan::messages
