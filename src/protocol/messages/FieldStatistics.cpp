#include "protocol/messages/FieldStatistics.h"

#include "protocol/messages/FieldStatisticsRequest.h"
#include "protocol/messages/MessageIO.h"


namespace orbelan::messages {

namespace {

// An empty text is its Integer length alone.
constexpr std::size_t kEmptyTextSize = 2;

} // namespace

void FieldStatistics::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutString(field);
    message.PutInteger(method);
    if (method == statisticsmethod::kDistinctValues) {
        message.PutInteger(shortCount(values.size()));
        for (const std::string& value : values) {
            message.PutString(value);
        }
    } else if (method == statisticsmethod::kMinimumAndMaximum) {
        for (std::size_t i = 0; i < 2; ++i) {
            message.PutString(i < values.size() ? values[i] : std::string());
        }
    }
}

FieldStatistics FieldStatistics::decode(DWBUffer& message)
{
    FieldStatistics statistics;
    statistics.layer = message.GetLong();
    statistics.field = message.GetString();
    statistics.method = message.GetInteger();
    std::int32_t count = 0;
    if (statistics.method == statisticsmethod::kDistinctValues) {
        count = message.GetInteger();
    } else if (statistics.method == statisticsmethod::kMinimumAndMaximum) {
        count = 2;
    }
    statistics.values =
        readRecords<std::string>(message, count, kEmptyTextSize, [](DWBUffer& m) { return m.GetString(); });
    return statistics;
}

} // namespace orbelan::messages
