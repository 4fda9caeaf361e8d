#include "ThematicClasses.h"

#include "MessageIO.h"

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
    reply.layer = message.GetLong();
    reply.classes = readRecords<ThematicClassRecord>(message, message.GetInteger(),
                                                     ThematicClassRecord::kMinimumSize,
                                                     ThematicClassRecord::decode);
    return reply;
}

} // namespace orbelan::messages
