#include "protocol/messages/ElementChange.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

namespace {

constexpr std::size_t kPointSize = 16;
constexpr std::size_t kLongSize = 4;
constexpr std::size_t kStringMinimumSize = 2;

} // namespace

void ElementChange::encode(DWBUffer& message) const
{
    message.PutInteger(operation);
    message.PutLong(layer);
    message.PutLong(element);
    if (carriesPoints()) {
        message.PutInteger(shortCount(points.size()));
        for (const WirePoint& point : points) {
            message.PutDouble(point.x);
            message.PutDouble(point.y);
        }
    }
    if (carriesValues()) {
        message.PutInteger(shortCount(values.size()));
        for (const std::string& value : values) {
            message.PutString(value);
        }
    }
    if (operation == GridBoundsChanged) {
        for (const std::int32_t bound : gridBounds) {
            message.PutLong(bound);
        }
    }
    if (operation == CellsToRefresh) {
        message.PutLong(longCount(cellI.size()));
        for (const std::vector<std::int32_t>* indices : {&cellI, &cellJ}) {
            for (const std::int32_t index : *indices) {
                message.PutLong(index);
            }
        }
    }
}

ElementChange ElementChange::decode(DWBUffer& message)
{
    ElementChange change;
    change.operation = message.GetInteger();
    change.layer = message.GetLong();
    change.element = message.GetLong();
    if (change.carriesPoints()) {
        change.points = readRecords<WirePoint>(message, message.GetInteger(), kPointSize, [](DWBUffer& m) {
            const double x = m.GetDouble();
            return WirePoint{x, m.GetDouble()};
        });
    }
    if (change.carriesValues()) {
        change.values = readRecords<std::string>(message, message.GetInteger(), kStringMinimumSize,
                                                 [](DWBUffer& m) { return m.GetString(); });
    }
    if (change.operation == GridBoundsChanged) {
        for (std::int32_t& bound : change.gridBounds) {
            bound = message.GetLong();
        }
    }
    if (change.operation == CellsToRefresh) {
        const std::int32_t cells = message.GetLong();
        const auto readIndex = [](DWBUffer& m) { return m.GetLong(); };
        change.cellI = readRecords<std::int32_t>(message, cells, kLongSize, readIndex);
        change.cellJ = readRecords<std::int32_t>(message, cells, kLongSize, readIndex);
    }
    return change;
}

} // namespace orbelan::messages
