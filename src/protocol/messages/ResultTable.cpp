#include "protocol/messages/ResultTable.h"

#include "protocol/messages/MessageIO.h"

#include <stdexcept>

namespace orbelan::messages {

namespace {

constexpr std::size_t kIdSize = 4;
constexpr std::size_t kStringMinimumSize = 2;

} // namespace

void ResultTable::encode(DWBUffer& message) const
{
    if (values.size() != ids.size() * valuesPerRow()) {
        throw std::invalid_argument("a result table's values do not fill its rows");
    }
    message.PutLong(layer);
    message.PutLong(longCount(ids.size()));
    message.PutInteger(columns);
    for (std::size_t row = 0; row < ids.size(); ++row) {
        message.PutLong(ids[row]);
        for (std::size_t column = 0; column < valuesPerRow(); ++column) {
            message.PutString(value(row, column));
        }
    }
}

ResultTable ResultTable::decode(DWBUffer& message)
{
    ResultTable table;
    table.layer = message.GetLong();
    const std::int32_t rows = message.GetLong();
    table.columns = message.GetInteger();
    const std::size_t perRow = table.valuesPerRow();
    const std::size_t rowSize = kIdSize + perRow * kStringMinimumSize;
    table.ids.reserve(reservableRecords(message, recordCount(rows), rowSize));
    table.values.reserve(table.ids.capacity() * perRow);
    forEachRecord(message, rows, [](DWBUffer& m) { return m.GetLong(); }, [&](std::int32_t id) {
        for (std::size_t column = 0; column < perRow; ++column) {
            table.values.push_back(message.GetString());
        }
        table.ids.push_back(id);
    });
    return table;
}

} // namespace orbelan::messages
