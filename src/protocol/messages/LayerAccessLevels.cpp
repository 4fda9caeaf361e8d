#include "LayerAccessLevels.h"

#include "MessageIO.h"

namespace orbelan::messages {

void LayerAccessLevels::encode(DWBUffer& message) const
{
    message.PutInteger(shortCount(levels.size()));
    for (const Entry& entry : levels) {
        message.PutLong(entry.layer);
        message.PutInteger(entry.level);
    }
}

LayerAccessLevels LayerAccessLevels::decode(DWBUffer& message)
{
    LayerAccessLevels reply;
    reply.levels = readRecords<Entry>(message, message.GetInteger(), 6, [](DWBUffer& m) {
        Entry entry;
        entry.layer = m.GetLong();
        entry.level = m.GetInteger();
        return entry;
    });
    return reply;
}

} // namespace orbelan::messages
