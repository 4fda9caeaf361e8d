#include "session/FieldStatisticsLoader.h"

#include "protocol/messages/FieldStatistics.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"

namespace orbelan {

void loadFieldStatistics(DWBUffer& message, LoadContext& context)
{
    messages::FieldStatistics statistics = messages::FieldStatistics::decode(message);
    context.events.statisticsArrived(statistics.layer, std::move(statistics.values));
}

} // namespace orbelan
