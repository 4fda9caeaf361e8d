#include "protocol/messages/LayerAccessLevels.h"

#include "protocol/messages/MessageIO.h"

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
    decodeEach(message, [&reply](const Entry& entry) { reply.levels.push_back(entry); });
    return reply;
}

void LayerAccessLevels::decodeEach(DWBUffer& message, const std::function<void(const Entry&)>& onEntry)
{
    const auto readEntry = [](DWBUffer& m) {
        Entry entry;
        entry.layer = m.GetLong();
        entry.level = m.GetInteger();
        return entry;
    };
    forEachRecord(message, message.GetInteger(), readEntry, onEntry);
}

} // namespace orbelan::messages
